#include "toolkit/pictures.h"

#include "system/failure.h"
#include "toolkit/application.h"

#include <vector>

namespace toolkit {

namespace {

// No picture that can be shown comes from a larger file; it is refused before memory is asked for.
constexpr std::int64_t longestPictureFile = 1LL << 30; // bytes

std::vector<std::uint8_t> readWhole(const std::string& path) {
    const auto file = systemFiles().open(path, sys::Access::read);
    const std::int64_t length = file->length();
    if (length > longestPictureFile) {
        throw Failure(FailureCode::outOfMemory);
    }
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(length));
    bytes.resize(file->read(bytes.data(), bytes.size()));
    return bytes;
}

} // namespace

sys::PicturePtr LoadPicture(const std::string& path) {
    return Application::current().system().decodePicture(readWhole(path));
}

sys::PicturePtr designPicture(std::span<const std::uint8_t> bytes) {
    return bytes.empty() ? nullptr : Application::current().system().decodePicture(bytes);
}

} // namespace toolkit
