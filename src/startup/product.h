// What the product is called, and where it and its maker live on the web.
#pragma once

#include "startup/version.h"

namespace product {

inline constexpr const char* title = "Tessellarium";
inline constexpr const char* maker = "Marrowfieldry Inc";
// NOTE: reserved example names, so that no real host is ever opened.
inline constexpr const char* webHost = "www.tessellarium.example";
inline constexpr const char* webPath = "/fw/fw.html";
inline constexpr const char* homePath = "/fw/Tessellarium/Tessellarium.html";
inline constexpr const char* makerHost = "www.marrowfieldry.example";

inline constexpr const char* helpFile = R"(C:\Program Files\Tessellarium\Tessellarium.HLP)";
inline constexpr const char* disclaimer = "This program comes with no warranty of any kind.";
inline constexpr const char* version = TESSELLARIUM_VERSION;

} // namespace product
