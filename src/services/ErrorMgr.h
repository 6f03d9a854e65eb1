// The texts of the failure codes.

#pragma once

#include <map>
#include <string>

namespace ErrorManager {

class ErrorMgr {
public:
    static ErrorMgr& GetInstance();

    /// The text of `code`; a code that is not known has a text too.
    std::string Get(int code);

private:
    ErrorMgr();

    std::map<int, std::string> Texts;
};

} // namespace ErrorManager
