// The code of the failure that a call ends in, as users know it.
#pragma once

#include "system/failure.h"

/// 0 when it doesn't fail.
template <class Call> int failureOf(const Call& call) {
    try {
        call();
    } catch (const Failure& failure) {
        return failure.number();
    }
    return 0;
}
