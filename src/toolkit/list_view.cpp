#include "toolkit/list_view.h"

#include "system/failure.h"

#include <algorithm>
#include <cstddef>

namespace toolkit {

namespace {

/// The 0-based index of a 1-based position among `count`.
std::size_t indexOf(std::int16_t position, std::size_t count) {
    if (position < 1 || static_cast<std::size_t>(position) > count) {
        throw Failure(FailureCode::subscriptOutOfRange);
    }
    return static_cast<std::size_t>(position - 1);
}

} // namespace

std::int16_t ListView::rowCount() const {
    return static_cast<std::int16_t>(std::min<std::size_t>(rows_.size(), INT16_MAX));
}

void ListView::removeRow(std::int16_t row) {
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(indexOf(row, rows_.size())));
}

const std::string& ListView::text(std::int16_t row, std::int16_t column) const {
    return rows_[indexOf(row, rows_.size())][indexOf(column, columns_)];
}

void ListView::setText(std::int16_t row, std::int16_t column, const std::string& text) {
    rows_[indexOf(row, rows_.size())][indexOf(column, columns_)] = text;
}

void ListView::load() {
    HiddenControl::load();
    rows_.clear();
}

} // namespace toolkit
