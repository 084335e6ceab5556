#include "toolkit/common_dialog.h"

#include "toolkit/application.h"

#include <algorithm>

namespace toolkit {

namespace {

/// A name without a pattern is none.
std::vector<sys::FileKind> kindsIn(const std::string& filter) {
    std::vector<sys::FileKind> kinds;
    for (std::size_t start = 0; start < filter.size();) {
        const std::size_t middle = filter.find('|', start);
        if (middle == std::string::npos) {
            break;
        }
        const std::size_t end = std::min(filter.find('|', middle + 1), filter.size());
        kinds.push_back({filter.substr(start, middle - start), filter.substr(middle + 1, end - middle - 1)});
        start = end + 1;
    }
    return kinds;
}

} // namespace

void CommonDialog::ShowSave() {
    Application& application = Application::current();
    const auto path = application.system().saveDialog({
        .fileName = FileName,
        .defaultExtension = DefaultExt,
        .kinds = kindsIn(Filter),
        .kind = FilterIndex,
        .asksBeforeOverwriting = (Flags & overwritePrompt) != 0,
        .hidesReadOnlyBox = (Flags & hideReadOnly) != 0,
        .owner = application.dialogOwner(),
    });
    if (path) {
        FileName = *path;
    } else if (CancelError) {
        throw Failure(FailureCode::dialogCancelled);
    }
}

void CommonDialog::load() {
    CancelError = false;
    Flags = 0;
    DefaultExt.clear();
    FileName.clear();
    FilterIndex = 0;
    Filter.clear();
}

} // namespace toolkit
