// A list in report view: rows of texts in columns, of which one is selected. Rows and columns are numbered
// from 1.
#pragma once

#include "system/controls.h"
#include "toolkit/control.h"

#include <cstdint>
#include <string>
#include <vector>

namespace toolkit {

/// A column: its caption, and what it takes of the list's width, 1 being all.
struct ColumnDesign {
    std::string caption{};
    float share = 0;
};

/// As long as there is a row, one is selected: the first row that comes; after the removal of the selected
/// one the row that took its place, or the last. What the user does selects another row or leaves it.
class ListView : public Control {
public:
    ListView(Container& container, const Design& design, std::vector<ColumnDesign> columns);

    /// 16 bits wide: of more rows the first 32767 can be reached.
    std::int16_t rowCount() const;
    /// Appends a row of empty texts.
    void addRow();
    /// Fails with 9 when there is no such row.
    void removeRow(std::int16_t row);
    void clearRows();

    /// Fails with 9 when there is no such row or column.
    const std::string& text(std::int16_t row, std::int16_t column) const;
    void setText(std::int16_t row, std::int16_t column, const std::string& text);

    /// Another number after each change of the rows, also after one that put a former state back.
    std::uint32_t revision() const { return revision_; }

    /// Fails with 91 when there is none.
    std::int16_t selectedRow() const;
    /// Fails with 9 when there is no such row.
    void selectRow(std::int16_t row);

    /// Asks for a repaint. The system repaints what has changed by itself, so that nothing is left to do.
    void refresh() {}

    // By their 0-based index:
    /// A click on a row, or a key that moves to it.
    void userSelected(int index);
    /// A double click on a row, or Enter.
    void userActivated(int index);

private:
    void load() override;
    std::unique_ptr<sys::Window> makeWindow() override;
    std::size_t indexOf(std::int16_t row) const;
    std::size_t columnIndexOf(std::int16_t column) const;
    void showSelection();
    sys::ListView& native() { return static_cast<sys::ListView&>(window()); }

    std::vector<ColumnDesign> columns_;
    std::vector<sys::RowTexts> rows_;
    std::int16_t selected_ = 0; // 0: none
    std::uint32_t revision_ = 0;
};

} // namespace toolkit
