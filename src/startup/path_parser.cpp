#include "startup/path_parser.h"

void PathParser::setFileSpec(const std::string& fileSpec) {
    fileSpec_ = fileSpec;
    Extension = ParseExtension();
    FileName = ParseFileName();
    Path = ParsePath();
    UrlPath = ParseUrlPath();
}

std::string PathParser::ParseExtension() const {
    const std::size_t lastDot = fileSpec_.rfind('.');
    return lastDot == std::string::npos ? "" : fileSpec_.substr(lastDot + 1);
}

std::size_t PathParser::FindNameStart() const {
    std::size_t separator = fileSpec_.find_last_of("\\/");
    if (separator == std::string::npos) {
        // A colon counts only without any slash, and then the first one.
        separator = fileSpec_.find(':');
    }
    return separator == std::string::npos ? 1 : separator + 2;
}

std::string PathParser::ParseFileName() const { return fileSpec_.substr(FindNameStart() - 1); }

std::string PathParser::ParsePath() const { return fileSpec_.substr(0, FindNameStart() - 1); }

std::string PathParser::ParseBaseName() const {
    const std::string name = ParseFileName();
    return name.substr(0, name.find('.'));
}

std::string PathParser::ParseUrlPath() const {
    const std::size_t slashes = fileSpec_.find("//");
    if (slashes == std::string::npos) {
        return "";
    }
    const std::size_t hostEnd = fileSpec_.find('/', slashes + 2);
    return hostEnd == std::string::npos ? "" : fileSpec_.substr(hostEnd + 1);
}
