// A list in report view: rows of texts in columns. Rows and columns are numbered from 1.
#pragma once

#include "toolkit/control.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace toolkit {

class ListView : public HiddenControl {
public:
    ListView(Container& container, const Design& design, std::size_t columns)
        : HiddenControl(container, design), columns_(columns) {}

    /// 16 bits wide: of more rows the first 32767 can be reached.
    std::int16_t rowCount() const;
    /// Appends a row of empty texts.
    void addRow() { rows_.emplace_back(columns_); }
    /// Fails with 9 when there is no such row.
    void removeRow(std::int16_t row);
    void clearRows() { rows_.clear(); }

    /// Fails with 9 when there is no such row or column.
    const std::string& text(std::int16_t row, std::int16_t column) const;
    void setText(std::int16_t row, std::int16_t column, const std::string& text);

private:
    void load() override;

    std::size_t columns_;
    std::vector<std::vector<std::string>> rows_;
};

} // namespace toolkit
