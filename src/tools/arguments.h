// The arguments of the inspection tool: options and plain words in any order, taken as bytes. Paths of
// Windows among them become texts of the code page where they are used.
#pragma once

#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace tools {

/// A call that the tool can't take; its text is one clear line.
class WrongCall : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class Arguments {
public:
    /// Every option, for example "--steps", takes one value. Fails with `WrongCall` for an option that is
    /// not among `options`, or one without its value.
    Arguments(const std::vector<std::string>& words, const std::set<std::string>& options);

    const std::vector<std::string>& plain() const { return plain_; }
    bool has(const std::string& option) const { return values_.contains(option); }
    /// The values of an option in the order given.
    std::vector<std::string> all(const std::string& option) const;
    /// The last value of an option; fails with `WrongCall` when it is missing.
    const std::string& one(const std::string& option) const;

private:
    std::vector<std::string> plain_;
    std::map<std::string, std::vector<std::string>> values_;
};

/// A whole text as a number; fails with `WrongCall`, naming `what`, when it isn't one of at least `least`.
double numberFrom(const std::string& text, const std::string& what, double least);
int wholeNumberFrom(const std::string& text, const std::string& what, int least);

/// The parts of a text between separators.
std::vector<std::string> split(const std::string& text, char separator);

} // namespace tools
