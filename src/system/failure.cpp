#include "system/failure.h"

const char* describe(FailureCode code) {
    switch (code) {
    case FailureCode::invalidProcedureCall: return "Invalid procedure call or argument";
    case FailureCode::overflow: return "Overflow";
    case FailureCode::outOfMemory: return "Out of memory";
    case FailureCode::subscriptOutOfRange: return "Subscript out of range";
    case FailureCode::typeMismatch: return "Type mismatch";
    case FailureCode::badFileNumber: return "Bad file name or number";
    case FailureCode::fileNotFound: return "File not found";
    case FailureCode::fileAlreadyOpen: return "File already open";
    case FailureCode::deviceIo: return "Device I/O error";
    case FailureCode::diskFull: return "Disk full";
    case FailureCode::inputPastEnd: return "Input past end of file";
    case FailureCode::deviceUnavailable: return "Device unavailable";
    case FailureCode::permissionDenied: return "Permission denied";
    case FailureCode::pathFileAccess: return "Path/File access error";
    case FailureCode::pathNotFound: return "Path not found";
    case FailureCode::objectNotSet: return "Object variable not set";
    case FailureCode::invalidPropertyValue: return "Invalid property value";
    case FailureCode::invalidPicture: return "Invalid picture";
    case FailureCode::dialogCancelled: return "Cancel was selected";
    }
    return "";
}
