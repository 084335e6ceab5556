#include "toolkit/drive_list.h"

#include "toolkit/application.h"
#include "toolkit/text.h"

#include <algorithm>
#include <utility>

namespace toolkit {

void DriveList::setDrive(const std::string& drive) {
    const std::int16_t index = indexOf(drive);
    if (index < 0) {
        throw Failure(FailureCode::deviceUnavailable);
    }
    setListIndex(index);
}

void DriveList::load() {
    ItemList::load();
    sys::Files& files = systemFiles();
    std::vector<sys::ListItem> names;
    for (const sys::DriveName& drive : files.drives()) {
        const std::string label = drive.label.empty() ? "" : " [" + drive.label + "]";
        names.push_back({.text = std::string(1, drive.letter) + ":" + label});
    }
    const std::string current = files.wholeFolder("");
    const auto found =
        std::ranges::find_if(names, [&](const sys::ListItem& name) { return name.text[0] == current[0]; });
    const auto index = static_cast<std::int16_t>(found == names.end() ? -1 : found - names.begin());
    assumeItems(std::move(names), index);
}

void DriveList::chosen(bool changed) {
    if (changed) {
        change.raise();
    }
}

std::int16_t DriveList::indexOf(const std::string& drive) const {
    const std::string letter = upperCase(drive.substr(0, 1));
    for (std::int16_t index = 0; index < listCount(); ++index) {
        if (list(index).substr(0, 1) == letter) {
            return index;
        }
    }
    return -1;
}

} // namespace toolkit
