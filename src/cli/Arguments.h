#pragma once
// The command line as a table: options by name, and the ways in which a command can be called.

#include <initializer_list>
#include <map>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// Wrong usage: the program says why and ends with 2.
struct WrongUsage : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Option {
    std::string_view name;   ///< "--at"
    std::string_view value;  ///< what follows it, as the help names it; "" for a switch
    std::string_view help;
    std::string_view alias = {};  ///< a second name
};

/// One way to call a command: the options that belong together, separated by blanks, the first of which selects the
/// way. "--from --to --step [--offset]": those in brackets may be left out.
using Way = std::string_view;

/// The options of one call.
class Arguments {
public:
    Arguments() = default;
    /// Takes `words` apart; "--name=value" and "--name value" are the same. An option given twice, also once by each
    /// of its names, is wrong usage: nobody can tell which value was meant. @throws WrongUsage
    Arguments(std::span<const std::string> words, std::span<const Option> known);

    bool has(std::string_view name) const { return m_values.contains(name); }
    /// The text of an option, "" where it was not given.
    std::string value(std::string_view name) const;
    const std::vector<std::string>& words() const { return m_words; }  ///< what is no option

    /// Which of the ways fits, by its first option. @throws WrongUsage where none or more than one does, where an
    /// option of it is missing or one of another way is given
    Way choose(std::span<const Way> ways) const;

private:
    std::map<std::string, std::string, std::less<>> m_values;
    std::vector<std::string> m_words;
};

/// The options of a way without brackets.
struct WayOption {
    std::string_view name;
    bool required;
};
std::vector<WayOption> OptionsOf(Way way);
const Option* FindOption(std::span<const Option> known, std::string_view nameOrAlias);
