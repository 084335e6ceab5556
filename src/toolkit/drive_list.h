// A drive list: the machine's drives, of which at first the current one is selected, if there is one.
#pragma once

#include "toolkit/item_list.h"

namespace toolkit {

class DriveList : public ItemList {
public:
    DriveList(Container& container, const Design& design)
        : ItemList(container, design, {.kind = sys::ListKind::dropDown}) {}

    /// For example "C:"; the current drive at first, "" when the current folder is on none, as one of a
    /// network.
    std::string drive() const { return text().substr(0, 2); }
    /// Only the first character counts, in any case. Another drive than the present one raises `change`,
    /// inside the assignment; the same raises nothing. Fails with 68 when there is no such drive; one that
    /// isn't ready is a drive.
    void setDrive(const std::string& drive);

    Event<> change;

private:
    void load() override;
    void chosen(bool changed) override;
    std::int16_t indexOf(const std::string& drive) const;
};

} // namespace toolkit
