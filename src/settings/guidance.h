// What the settings dialog tells its user to do.
#pragma once

namespace guidance {

inline constexpr const char* standAlone = "Tessellarium is running in Stand-Alone Mode.\r\n"
                                          "Modify the Tessellarium settings by selecting the options at\r\n"
                                          "the bottom of this screen.\r\n"
                                          "\r\n"
                                          "Click Done when all options are to your liking.";

inline constexpr const char* templateMode =
    "Tessellarium is currently in Template Mode.\r\n"
    "\r\n"
    "In this mode, you must either Select an existing template, Create\r\n"
    "a new template, or Edit an existing template.\r\n"
    "\r\n"
    "Click Select, Edit or Create.\r\n"
    "\r\n"
    "Modify the Tessellarium settings by selecting the options at\r\n"
    "the bottom of this screen.\r\n"
    "\r\n"
    "Click Done when all options are to your liking.";

inline constexpr const char* folderMode =
    "Tessellarium is currently in Folder Mode.\r\n"
    "\r\n"
    "In this mode, all the images (BMP, JPG, GIF and WMF) in the folder\r\n"
    "you select will be displayed in the screen saver.\r\n"
    "\r\n"
    "Click Select to choose the folder containing your images.\r\n"
    "\r\n"
    "Modify the Tessellarium settings by selecting the options at\r\n"
    "the bottom of this screen.\r\n"
    "\r\n"
    "Click Done when all options are to your liking.";

} // namespace guidance
