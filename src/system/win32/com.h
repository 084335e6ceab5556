// Owners for the system's components.
#pragma once

#include "system/win32/native.h"

#include <objbase.h>

#include <memory>

namespace sys::win32 {

struct ReleaseInterface {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface> using ComPtr = std::unique_ptr<Interface, ReleaseInterface>;

/// Stands before the first component of its owner is made, and until the last one is gone.
class Apartment {
public:
    Apartment() : entered_(SUCCEEDED(CoInitialize(nullptr))) {}
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    ~Apartment() {
        if (entered_) {
            CoUninitialize();
        }
    }

private:
    bool entered_;
};

} // namespace sys::win32
