// The controls of dialogs: what each shows, and what keyboard and mouse do with it.
#pragma once

#include "system/controls.h"
#include "system/simulated/screen.h"

#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace sys::simulated {

constexpr Color faceColor{240, 240, 240};

/// A control that keyboard and mouse work on. Each of these reports to `input` what came of it, and the
/// window may be gone afterwards.
class ControlWindow : public WindowNode {
public:
    ControlWindow(Screen& screen, WindowNode* parent, std::string text)
        : WindowNode(screen, WindowKind::control, parent, std::move(text)) {}
    bool takesKeyboard() const override { return true; }
    /// `at` is in pixels of the window.
    virtual void clickedAt(Input& input, Point at) = 0;
    virtual void doubleClickedAt(Input& input, Point at) { clickedAt(input, at); }
    /// Whether it had a use for the key.
    virtual bool takeKey(Input& input, int keyCode, int shift) = 0;
    virtual void takeCharacter(Input& /*input*/, int /*character*/) {}

protected:
    void drawBox(Bitmap& target, const PixelRect& clip, Color color) const;
    void drawCaption(Bitmap& target, Point at, const PixelRect& clip, const std::string& caption) const;
};

class LabelWindow final : public NativeWindow<sys::Window> {
public:
    LabelWindow(Screen& screen, WindowNode* parent, LabelStyle style);
    /// It is drawn at the left whatever this is.
    Alignment alignment() const { return style_.alignment; }
    void draw(Bitmap& target, Point at, const PixelRect& clip) const override;

private:
    LabelStyle style_;
};

class ButtonWindow final : public NativeWindow<sys::Button, ControlWindow> {
public:
    ButtonWindow(Screen& screen, WindowNode* parent, const ButtonStyle& style)
        : NativeWindow(screen, parent, style.caption), style_(style) {}
    bool checked() const { return checked_; }
    const std::string& toolTip() const { return style_.toolTip; }
    std::span<const std::uint8_t> icon() const { return style_.icon; }
    void setChecked(bool checked) override { checked_ = checked; }

    /// Of a group of option buttons only the one that is set, if any, has a place in the tab order.
    bool takesKeyboard() const override;
    void clickedAt(Input& input, Point at) override;
    bool takeKey(Input& input, int keyCode, int shift) override;
    void draw(Bitmap& target, Point at, const PixelRect& clip) const override;

private:
    std::vector<ButtonWindow*> group() const;

    ButtonStyle style_;
    bool checked_ = false;
};

class TextBoxWindow final : public NativeWindow<sys::Window, ControlWindow> {
public:
    TextBoxWindow(Screen& screen, WindowNode* parent, const TextBoxStyle& style)
        : NativeWindow(screen, parent, ""), style_(style) {}

    void clickedAt(Input&, Point) override {}
    bool takeKey(Input& input, int keyCode, int shift) override;
    /// At the end of the text.
    void takeCharacter(Input& input, int character) override;
    /// The user replaces the whole text.
    void enter(Input& input, const std::string& text);
    void draw(Bitmap& target, Point at, const PixelRect& clip) const override;

private:
    TextBoxStyle style_;
};

class ListWindow final : public NativeWindow<sys::List, ControlWindow> {
public:
    ListWindow(Screen& screen, WindowNode* parent, const ListStyle& style)
        : NativeWindow(screen, parent, ""), style_(style) {}
    const std::vector<ListItem>& items() const { return items_; }
    int selected() const { return selected_; }
    void setItems(const std::vector<ListItem>& items) override;
    void addItem(const ListItem& item) override { items_.push_back(item); }
    void select(int index) override { selected_ = index; }
    void refresh() override { seen_ = items_; }
    /// What the last refresh brought to the screen.
    const std::vector<ListItem>& seen() const { return seen_; }

    void clickedAt(Input& input, Point at) override;
    void doubleClickedAt(Input& input, Point at) override;
    bool takeKey(Input& input, int keyCode, int shift) override;
    /// The user clicks on an item.
    void choose(Input& input, int index);
    void draw(Bitmap& target, Point at, const PixelRect& clip) const override;

private:
    ListStyle style_;
    std::vector<ListItem> items_;
    std::vector<ListItem> seen_;
    int selected_ = -1;
};

class ListViewWindow final : public NativeWindow<sys::ListView, ControlWindow> {
public:
    ListViewWindow(Screen& screen, WindowNode* parent, std::vector<Column> columns)
        : NativeWindow(screen, parent, ""), columns_(std::move(columns)) {}
    const std::vector<Column>& columns() const { return columns_; }
    const std::vector<RowTexts>& rows() const { return rows_; }
    int selected() const { return selected_; }
    void setRows(const std::vector<RowTexts>& rows) override;
    void addRow() override { rows_.emplace_back(columns_.size()); }
    void removeRow(int row) override { rows_.erase(rows_.begin() + row); }
    void setCellText(int row, int column, const std::string& text) override;
    void select(int row) override;

    void clickedAt(Input& input, Point at) override;
    void doubleClickedAt(Input& input, Point at) override;
    bool takeKey(Input& input, int keyCode, int shift) override;
    /// A letter selects the next row that begins with it.
    void takeCharacter(Input& input, int character) override;
    /// The user clicks on a row.
    void choose(Input& input, int row);
    void draw(Bitmap& target, Point at, const PixelRect& clip) const override;

private:
    int rowAt(Point at) const;
    int rowsInSight() const;

    std::vector<Column> columns_;
    std::vector<RowTexts> rows_;
    int selected_ = -1;
    int top_ = 0; // the first row in sight
};

class ProgressBarWindow final : public NativeWindow<sys::ProgressBar> {
public:
    ProgressBarWindow(Screen& screen, WindowNode* parent)
        : NativeWindow(screen, WindowKind::control, parent, "") {}
    float value() const { return value_; }
    void setValue(float value) override { value_ = value; }
    void draw(Bitmap& target, Point at, const PixelRect& clip) const override;

private:
    float value_ = 0;
};

class ScrollBarWindow final : public NativeWindow<sys::ScrollBar, ControlWindow> {
public:
    ScrollBarWindow(Screen& screen, WindowNode* parent) : NativeWindow(screen, parent, "") {}
    int value() const { return value_; }
    void setRange(int least, int greatest) override;
    void setValue(int value) override { value_ = value; }

    /// The arrows take a small step, the halves of the rest a large one.
    void clickedAt(Input& input, Point at) override;
    bool takeKey(Input& input, int keyCode, int shift) override;
    void draw(Bitmap& target, Point at, const PixelRect& clip) const override;

private:
    int least_ = 0;
    int greatest_ = 0;
    int value_ = 0;
};

} // namespace sys::simulated
