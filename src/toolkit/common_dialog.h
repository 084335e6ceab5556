// The system's dialog for the name of a file to write.
#pragma once

#include "toolkit/control.h"

#include <cstdint>
#include <string>

namespace toolkit {

/// Its values are those of the design, empty or 0, at each load of the form.
class CommonDialog : public Component {
public:
    using Component::Component;

    /// What `Flags` is made of.
    enum Flag : std::int32_t { overwritePrompt = 2, hideReadOnly = 4 };

    bool CancelError = false; // to cancel it is failure 32755; else it only leaves `FileName`
    std::int32_t Flags = 0;
    std::string DefaultExt;       // of a name that is given without one; without the dot
    std::string FileName;         // what is proposed, and what the user gave: then a whole path
    std::int16_t FilterIndex = 0; // of the kind of files that is chosen at first; 1-based
    std::string Filter;           // kinds of files, for example "Text Files (*.txt)|*.txt|All Files|*.*"

    /// Returns when the user has answered.
    void ShowSave();

private:
    void load() override;
    void unload() override {}
};

} // namespace toolkit
