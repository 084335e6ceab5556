// The one exception type of the program: a code and its description.
#pragma once

#include <string>

/// Codes of failures, as users and handlers know them. Each has one description (see `describe`).
enum class FailureCode {
    invalidProcedureCall = 5,
    overflow = 6,
    outOfMemory = 7,
    subscriptOutOfRange = 9,
    typeMismatch = 13,
    badFileNumber = 52,
    fileNotFound = 53,
    fileAlreadyOpen = 55,
    deviceIo = 57,
    diskFull = 61,
    inputPastEnd = 62,
    deviceUnavailable = 68,
    permissionDenied = 70,
    pathFileAccess = 75,
    pathNotFound = 76,
    objectNotSet = 91,
    invalidPropertyValue = 380,
    invalidPicture = 481,
    dialogCancelled = 32755,
};

/// The text that a user reads for a failure, for example "File not found".
const char* describe(FailureCode code);

/// A failure on its way to a handler, or to the toolkit's default report if no one catches it.
class Failure {
public:
    explicit Failure(FailureCode code) : code_(code) {}

    FailureCode code() const { return code_; }
    /// The code as users know it, for example 53.
    int number() const { return static_cast<int>(code_); }
    std::string description() const { return describe(code_); }

private:
    FailureCode code_;
};
