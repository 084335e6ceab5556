#include "system/simulated/machine.h"

#include <algorithm>

namespace sys::simulated {

namespace {

constexpr int headerHeight = 20; // pixels
constexpr int rowHeight = 17;

} // namespace

void ListViewWindow::setRows(const std::vector<RowTexts>& rows) {
    rows_ = rows;
    selected_ = -1;
    top_ = 0;
}

void ListViewWindow::setCellText(int row, int column, const std::string& text) {
    rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = text;
}

void ListViewWindow::select(int row) {
    selected_ = row;
    if (row >= 0) {
        top_ = std::clamp(top_, row - rowsInSight() + 1, row);
    }
}

int ListViewWindow::rowsInSight() const { return std::max((rect().height() - headerHeight) / rowHeight, 1); }

/// -1 where there is none.
int ListViewWindow::rowAt(Point at) const {
    const int row = top_ + (at.y - headerHeight) / rowHeight;
    return at.y < headerHeight || row >= static_cast<int>(rows_.size()) ? -1 : row;
}

void ListViewWindow::clickedAt(Input& input, Point at) { choose(input, rowAt(at)); }

void ListViewWindow::doubleClickedAt(Input& input, Point at) {
    if (const int row = rowAt(at); row >= 0) {
        input.itemActivated(id(), row);
    }
}

bool ListViewWindow::takeKey(Input& input, int keyCode, int shift) {
    const int last = static_cast<int>(rows_.size()) - 1;
    const bool moves = (shift & controlKey) == 0;
    switch (keyCode) {
    case upKey: choose(input, moves ? std::max(selected_ - 1, 0) : -1); return true;
    case downKey: choose(input, moves ? std::min(selected_ + 1, last) : -1); return true;
    case homeKey: choose(input, 0); return true;
    case endKey: choose(input, last); return true;
    case leftKey:
    case rightKey:
    case deleteKey: return true;
    case enterKey:
        if (selected_ >= 0) {
            input.itemActivated(id(), selected_);
        }
        return true;
    default: return false;
    }
}

void ListViewWindow::takeCharacter(Input& input, int character) {
    const auto lower = [](int letter) {
        return letter >= 'A' && letter <= 'Z' ? letter - 'A' + 'a' : letter;
    };
    const int rows = static_cast<int>(rows_.size());
    for (int passed = 1; passed <= rows; ++passed) {
        const int row = (selected_ + passed) % rows;
        const std::string& text = rows_[static_cast<std::size_t>(row)][0];
        if (!text.empty() && lower(text[0]) == lower(character)) {
            choose(input, row);
            return;
        }
    }
}

void ListViewWindow::choose(Input& input, int row) {
    if (row >= 0 && row < static_cast<int>(rows_.size()) && row != selected_) {
        select(row);
        input.itemSelected(id(), row);
    }
}

void ListViewWindow::draw(Bitmap& target, Point at, const PixelRect& clip) const {
    drawBox(target, clip, {255, 255, 255});
    int left = at.x;
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        const int width = pixelEdge(columns_[column].width, screen().scale().x);
        const PixelRect strip = intersection(clip, {left, clip.top, left + width, clip.bottom});
        drawCaption(target, {left, at.y}, strip, columns_[column].caption);
        int top = at.y + headerHeight;
        for (int row = top_; row < static_cast<int>(rows_.size()) && top < clip.bottom; ++row) {
            const PixelRect cell = intersection(strip, {left, top, left + width, top + rowHeight});
            if (row == selected_) {
                target.fill(cell, opaque({180, 210, 255}));
            }
            drawCaption(target, {left, top}, cell, rows_[static_cast<std::size_t>(row)][column]);
            top += rowHeight;
        }
        left += width;
    }
}

std::unique_ptr<sys::ListView> Machine::createListView(Window& parent, const std::vector<Column>& columns) {
    return std::make_unique<ListViewWindow>(screen_, screen_.find(parent.handle()), columns);
}

} // namespace sys::simulated
