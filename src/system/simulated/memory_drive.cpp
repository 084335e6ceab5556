#include "system/names.h"
#include "system/simulated/drive.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <map>

namespace sys::simulated {

namespace {

using Bytes = std::vector<std::uint8_t>;

/// Shares the content with the drive, so that a file may be removed while it is open.
class MemoryFile final : public File {
public:
    MemoryFile(std::shared_ptr<Bytes> bytes, Access access) : bytes_(std::move(bytes)), access_(access) {}

    std::size_t read(void* buffer, std::size_t size) override {
        const std::size_t there = position_ < bytes_->size() ? bytes_->size() - position_ : 0;
        const std::size_t count = std::min(size, there);
        if (count > 0) {
            std::memcpy(buffer, bytes_->data() + position_, count);
        }
        position_ += count;
        return count;
    }

    void write(const void* data, std::size_t size) override {
        if (access_ == Access::append) {
            position_ = bytes_->size();
        }
        if (size == 0) {
            return;
        }
        if (position_ + size > bytes_->size()) {
            bytes_->resize(position_ + size);
        }
        std::memcpy(bytes_->data() + position_, data, size);
        position_ += size;
    }

    void seek(std::int64_t offset) override { position_ = static_cast<std::size_t>(offset); }
    std::int64_t length() override { return static_cast<std::int64_t>(bytes_->size()); }

private:
    std::shared_ptr<Bytes> bytes_;
    Access access_;
    std::size_t position_ = 0;
};

class MemoryDrive final : public Drive {
public:
    std::optional<Entry> find(const DrivePath& path) override {
        const Node* node = &root_;
        for (const std::string& part : path) {
            const auto found = node->children.find(folded(part));
            if (found == node->children.end()) {
                return std::nullopt;
            }
            node = &found->second;
        }
        return entryOf(*node);
    }

    std::optional<std::string> hostPath(const DrivePath& /*path*/) override { return std::nullopt; }

    std::vector<Entry> entries(const DrivePath& folder) override {
        std::vector<Entry> entries;
        for (const auto& [key, child] : node(folder).children) {
            entries.push_back(entryOf(child));
        }
        return entries;
    }

    std::unique_ptr<File> open(const DrivePath& path, Access access) override {
        Node& file = node(path);
        if (!file.bytes || access == Access::write) {
            file.bytes = std::make_shared<Bytes>();
        }
        return std::make_unique<MemoryFile>(file.bytes, access);
    }

    void remove(const DrivePath& path) override {
        node({path.begin(), path.end() - 1}).children.erase(folded(path.back()));
    }

    void makeFolder(const DrivePath& path) override { node(path); }

private:
    struct Node {
        std::string name;
        std::map<std::string, Node> children; // by the name in lower case
        std::shared_ptr<Bytes> bytes;         // null: a folder
    };

    static Entry entryOf(const Node& node) {
        return {node.name, node.bytes ? Entry::Kind::file : Entry::Kind::folder, false};
    }

    /// Makes what is missing.
    Node& node(const DrivePath& path) {
        Node* node = &root_;
        for (const std::string& part : path) {
            Node& child = node->children[folded(part)];
            if (child.name.empty()) {
                child.name = part;
            }
            node = &child;
        }
        return *node;
    }

    Node root_;
};

} // namespace

std::unique_ptr<Drive> makeMemoryDrive() { return std::make_unique<MemoryDrive>(); }

} // namespace sys::simulated
