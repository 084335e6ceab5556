// Codes of the keys that tests press, as the system gives them.
#pragma once

namespace keys {

constexpr int tab = 9;
constexpr int enter = 13;
constexpr int escape = 27;
constexpr int space = 32;
constexpr int end = 35;
constexpr int home = 36;
constexpr int left = 37;
constexpr int up = 38;
constexpr int right = 39;
constexpr int down = 40;
constexpr int deletion = 46;
constexpr int function1 = 112; // makes no character

} // namespace keys
