// The controls of dialogs. Each has the look and the keyboard of the system; what the user does with it comes
// to `Input`.
#pragma once

#include "system/window.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace sys {

enum class ButtonKind { command, check, option };

struct ButtonStyle {
    ButtonKind kind = ButtonKind::command;
    std::string caption{};
    /// The bytes of an icon file, whose size nearest to 32 dialog pixels stands above the caption; none: no
    /// picture.
    std::span<const std::uint8_t> icon{};
    bool isDefault = false; // it is drawn as the one that Enter stands for
    std::string toolTip{};  // shown while the pointer rests on it; none for ""
};

class Button : public Window {
public:
    virtual void setChecked(bool checked) = 0;
};

struct TextBoxStyle {
    bool multiLine = false; // lines are divided by CR LF
    bool readOnly = false;  // in the colour of the dialog
};

enum class ListKind { box, dropDown };

struct ListStyle {
    ListKind kind = ListKind::box;
    bool icons = false;       // each item has one, and is indented by its level
    bool activatable = false; // Enter activates the selected item, as a double click does
};

enum class ItemIcon { folder, openFolder };

struct ListItem {
    std::string text{};
    int level = 0;
    ItemIcon icon = ItemIcon::folder;
};

/// Items of which at most one is selected. Indexes are 0-based; -1 is none.
class List : public Window {
public:
    /// Replaces all; nothing is selected then.
    virtual void setItems(const std::vector<ListItem>& items) = 0;
    virtual void addItem(const ListItem& item) = 0;
    /// Brings the item into sight, too.
    virtual void select(int index) = 0;
};

struct Column {
    std::string caption{};
    float width = 0; // twips
};

/// The texts of a row, one for each column.
using RowTexts = std::vector<std::string>;

/// Rows of texts in columns, of which at most one is selected, whatever the user does. Rows and columns are
/// 0-based; row -1 is none.
class ListView : public Window {
public:
    /// Replaces all; nothing is selected then.
    virtual void setRows(const std::vector<RowTexts>& rows) = 0;
    /// Appends a row of empty texts.
    virtual void addRow() = 0;
    /// What is selected then is the caller's to say.
    virtual void removeRow(int row) = 0;
    virtual void setCellText(int row, int column, const std::string& text) = 0;
    /// Brings the row into sight, too.
    virtual void select(int row) = 0;
};

class ProgressBar : public Window {
public:
    /// From 0 to 100.
    virtual void setValue(float value) = 0;
};

class ScrollBar : public Window {
public:
    virtual void setRange(int least, int greatest) = 0;
    virtual void setValue(int value) = 0;
};

struct FrameStyle {
    std::string caption{};
    bool border = true;
};

enum class MessageButtons { ok, okCancel, yesNo };
enum class MessageIcon { none, information };
enum class MessageAnswer : int { ok = 1, cancel = 2, yes = 6, no = 7 };

struct MessageBoxStyle {
    std::string text{};
    std::string title{};
    MessageButtons buttons = MessageButtons::ok;
    MessageIcon icon = MessageIcon::none;
    WindowHandle owner = 0; // 0: the program's active window
};

/// One of the kinds of files that a dialog offers, for example "Text Files" and "*.txt".
struct FileKind {
    std::string name{};
    std::string pattern{};
    bool operator==(const FileKind&) const = default;
};

struct SaveDialogStyle {
    std::string fileName{};         // what is proposed; the dialog opens in its folder, if it has one
    std::string defaultExtension{}; // of a name that is given without one; without the dot
    std::vector<FileKind> kinds{};
    int kind = 1; // the one that is chosen at first; 1-based
    bool asksBeforeOverwriting = false;
    bool hidesReadOnlyBox = false;
    WindowHandle owner = 0; // 0: none
};

} // namespace sys
