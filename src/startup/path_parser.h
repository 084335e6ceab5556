// Takes a file specification apart: a path with backslashes or slashes, or a text shaped like a URL.
#pragma once

#include <cstddef>
#include <string>

/// Assign `FileSpec`, then read the parts; `Path` followed by `FileName` is always the whole. Works on the
/// text alone and never fails.
class PathParser {
public:
    const std::string& FileSpec() const { return fileSpec_; }
    /// Computes all parts at once.
    void setFileSpec(const std::string& fileSpec);

    std::string Extension; // behind the last dot anywhere in `FileSpec`, also in a folder's name: meant so
    std::string FileName;  // behind the last separator, extension included
    std::string Path;      // up to and including the last separator
    std::string UrlPath;   // behind "//", a host and its slash; otherwise empty

    /// The file name up to its first dot, unlike `Extension`, which begins behind the last one.
    std::string ParseBaseName() const;

private:
    std::string ParseExtension() const;
    std::string ParseFileName() const;
    std::string ParsePath() const;
    std::size_t FindNameStart() const; // 1-based
    std::string ParseUrlPath() const;

    std::string fileSpec_;
};
