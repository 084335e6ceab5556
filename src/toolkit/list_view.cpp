#include "toolkit/list_view.h"

#include "toolkit/application.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace toolkit {

namespace {

/// The 0-based index of a 1-based position among `count`.
std::size_t checked(std::int16_t position, std::size_t count) {
    if (position < 1 || static_cast<std::size_t>(position) > count) {
        throw Failure(FailureCode::subscriptOutOfRange);
    }
    return static_cast<std::size_t>(position - 1);
}

} // namespace

ListView::ListView(Container& container, const Design& design, std::vector<ColumnDesign> columns)
    : Control(container, design), columns_(std::move(columns)) {}

std::size_t ListView::indexOf(std::int16_t row) const { return checked(row, rows_.size()); }

std::size_t ListView::columnIndexOf(std::int16_t column) const { return checked(column, columns_.size()); }

std::int16_t ListView::rowCount() const {
    return static_cast<std::int16_t>(std::min<std::size_t>(rows_.size(), INT16_MAX));
}

void ListView::addRow() {
    rows_.emplace_back(columns_.size());
    ++revision_;
    if (hasWindow()) {
        native().addRow();
    }
    if (rows_.size() == 1) {
        selectRow(1);
    }
}

void ListView::removeRow(std::int16_t row) {
    const std::size_t index = indexOf(row);
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(index));
    ++revision_;
    if (hasWindow()) {
        native().removeRow(static_cast<int>(index));
    }
    if (row < selected_ || selected_ > rowCount()) {
        --selected_;
    }
    showSelection();
}

void ListView::clearRows() {
    rows_.clear();
    ++revision_;
    selected_ = 0;
    if (hasWindow()) {
        native().setRows(rows_);
    }
}

const std::string& ListView::text(std::int16_t row, std::int16_t column) const {
    return rows_[indexOf(row)][columnIndexOf(column)];
}

void ListView::setText(std::int16_t row, std::int16_t column, const std::string& text) {
    const std::size_t rowIndex = indexOf(row);
    const std::size_t columnIndex = columnIndexOf(column);
    rows_[rowIndex][columnIndex] = text;
    ++revision_;
    if (hasWindow()) {
        native().setCellText(static_cast<int>(rowIndex), static_cast<int>(columnIndex), text);
    }
}

std::int16_t ListView::selectedRow() const {
    if (selected_ == 0) {
        throw Failure(FailureCode::objectNotSet);
    }
    return selected_;
}

void ListView::selectRow(std::int16_t row) {
    indexOf(row); // fails
    selected_ = row;
    showSelection();
}

void ListView::showSelection() {
    if (hasWindow()) {
        native().select(selected_ - 1);
    }
}

void ListView::userSelected(int index) {
    if (index >= 0 && index < rowCount()) {
        selected_ = static_cast<std::int16_t>(index + 1);
        click.raise();
    }
}

void ListView::userActivated(int index) {
    if (index >= 0 && index < rowCount()) {
        dblClick.raise();
    }
}

void ListView::load() {
    Control::load();
    rows_.clear();
    ++revision_;
    selected_ = 0;
}

std::unique_ptr<sys::Window> ListView::makeWindow() {
    std::vector<sys::Column> columns;
    for (const ColumnDesign& column : columns_) {
        columns.push_back({column.caption, column.share * width()});
    }
    auto made = Application::current().system().createListView(container().nativeWindow(), columns);
    made->place(area()); // first, so that the row can be brought into sight
    made->setRows(rows_);
    made->select(selected_ - 1);
    return made;
}

} // namespace toolkit
