// Tests as files that a person reads and writes. A case is "== NAME", what is done, and what comes of it. To
// replay its text gives it as it should be; where the file says something else, the case fails.

#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace Cases {

/// Gives a case's text, without its name, as it should be.
using Replay = std::function<std::string(const std::string& text)>;

/// What main() does with its arguments, "[--update] FILE...": replays the files' cases, says on standard
/// error which fail, and with --update writes them as they should be. Gives the exit status.
int Run(int count, char** arguments, const Replay& replay);

/// The cases of a file by their names, in its order.
std::vector<std::pair<std::string, std::string>> Of(const std::string& file);

/// Something that is done in a case, and what the case says comes of it.
struct Try {
    std::string Text;                  ///< as it stands there, up to the first "-> "
    std::string Given;                 ///< what is done, a statement a line
    std::vector<std::string> Outcomes; ///< what stands behind each "-> "
};

/// What a case's text tries, one behind the other: statements, parted by line ends or " | ", and outcomes,
/// each behind "-> " in a line of its own or at the end of the last statement's. Statements behind an outcome
/// begin anew, but for those of a line "with STATEMENTS", which stand ahead of all. A line that begins with
/// four blanks goes on with the one before.
std::vector<Try> TriesOf(const std::string& text);

/// The text of a try with these outcomes, in lines of at most 118 characters as far as blanks part them.
std::string TextOf(const Try& each, const std::vector<std::string>& outcomes);

} // namespace Cases
