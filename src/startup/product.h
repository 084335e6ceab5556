// What the product is called, and where it and its maker live on the web.
#pragma once

namespace product {

inline constexpr const char* title = "Tessellarium";
inline constexpr const char* maker = "Marrowfieldry Inc";
// NOTE: reserved example names, so that no real host is ever opened.
inline constexpr const char* webHost = "www.tessellarium.example";
inline constexpr const char* webPath = "/fw/fw.html";
inline constexpr const char* makerHost = "www.marrowfieldry.example";

} // namespace product
