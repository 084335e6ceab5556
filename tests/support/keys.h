// The keys that tests press, for short.
#pragma once

#include "system/window.h"

namespace keys {

constexpr int tab = sys::tabKey;
constexpr int enter = sys::enterKey;
constexpr int escape = sys::escapeKey;
constexpr int space = sys::spaceKey;
constexpr int end = sys::endKey;
constexpr int home = sys::homeKey;
constexpr int left = sys::leftKey;
constexpr int up = sys::upKey;
constexpr int right = sys::rightKey;
constexpr int down = sys::downKey;
constexpr int deletion = sys::deleteKey;
constexpr int function1 = sys::function1Key; // makes no character

} // namespace keys
