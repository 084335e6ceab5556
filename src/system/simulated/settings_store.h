// The settings store in memory.
#pragma once

#include "system/files.h"

#include <map>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace sys::simulated {

/// Names are compared without the case of their letters.
class StoredSettings final : public SettingsStore {
public:
    std::optional<std::string> read(const std::string& application, const std::string& section,
                                    const std::string& key) override;
    void write(const std::string& application, const std::string& section, const std::string& key,
               const std::string& value) override;

    /// From now on writes fail.
    void refuseWrites() { refusesWrites_ = true; }

    /// The keys that were read since this was last asked, in their order.
    std::vector<std::string> takeRead() { return std::exchange(read_, {}); }
    /// The keys that were written since this was last asked, in their order.
    std::vector<std::string> takeWritten() { return std::exchange(written_, {}); }

private:
    std::map<std::tuple<std::string, std::string, std::string>, std::string> values_;
    std::vector<std::string> read_;
    std::vector<std::string> written_;
    bool refusesWrites_ = false;
};

} // namespace sys::simulated
