// The idioms of routines that handle failures. Want of memory is a failure like any other.
#pragma once

#include "system/failure.h"

#include <new>
#include <utility>

namespace toolkit {

/// A routine with a handler around its body.
template <class Body, class Handler> void handlingFailures(const Body& body, const Handler& handler) {
    try {
        body();
    } catch (const Failure& failure) {
        handler(failure);
    } catch (const std::bad_alloc&) {
        handler(Failure(FailureCode::outOfMemory));
    }
}

/// A routine that, after a failure, resumes at the next statement: gives a runner of statements, each run by
/// itself; a failure in it goes to `onFailure` only.
template <class OnFailure> auto resumingNext(OnFailure onFailure) {
    return
        [onFailure = std::move(onFailure)](const auto& statement) { handlingFailures(statement, onFailure); };
}

} // namespace toolkit
