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

/// A text that has what is done, and behind "->" what comes of it: the first part, a statement a line; as it
/// stands, " | " parts statements too.
std::string Given(const std::string& text);
std::string AsGiven(const std::string& text);

/// Takes the lines that begin with `word` out of `text`, and gives what stands behind it in each.
std::vector<std::string> TakeLines(std::string& text, const std::string& word);

} // namespace Cases
