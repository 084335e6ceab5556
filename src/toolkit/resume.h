// The idiom of a routine that, after a failure, resumes at the next statement.
#pragma once

#include "system/failure.h"

#include <utility>

namespace toolkit {

/// Gives a runner of statements: each is run by itself, and a failure in it goes to `onFailure` only.
template <class OnFailure> auto resumingNext(OnFailure onFailure) {
    return [onFailure = std::move(onFailure)](const auto& statement) {
        try {
            statement();
        } catch (const Failure& failure) {
            onFailure(failure);
        }
    };
}

} // namespace toolkit
