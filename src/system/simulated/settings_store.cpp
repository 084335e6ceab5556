#include "system/simulated/settings_store.h"

#include "system/failure.h"
#include "system/names.h"

namespace sys::simulated {

std::optional<std::string> StoredSettings::read(const std::string& application, const std::string& section,
                                                const std::string& key) {
    read_.push_back(key);
    const auto found = values_.find({folded(application), folded(section), folded(key)});
    return found == values_.end() ? std::nullopt : std::optional(found->second);
}

void StoredSettings::write(const std::string& application, const std::string& section, const std::string& key,
                           const std::string& value) {
    if (refusesWrites_) {
        throw Failure(FailureCode::invalidProcedureCall);
    }
    values_[{folded(application), folded(section), folded(key)}] = value;
    written_.push_back(key);
}

} // namespace sys::simulated
