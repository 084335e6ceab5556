// The records of a Windows metafile, checked before the system, which trusts them, gets to play them.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace sys::win32 {

/// The window of a metafile's own coordinates that makes up the picture.
struct MetafileFrame {
    int left = 0;
    int top = 0;
    int width = 0;  // negative where coordinates grow to the left
    int height = 0; // or upward
};

struct MetafileRecords {
    std::vector<std::uint8_t> playable;  // header and records as `SetMetaFileBitsEx` takes them
    std::optional<MetafileFrame> window; // as the records themselves set it first
};

/// `bytes` begin with the standard header, behind any placeable one. Fails with 481 when a record reaches
/// beyond the file or its data beyond the record, or when the end mark is missing.
MetafileRecords checkedRecords(std::span<const std::uint8_t> bytes);

} // namespace sys::win32
