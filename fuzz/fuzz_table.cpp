// Tables on every route. Properties.h says what an input is.

#include "Properties.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    Properties::Check(data, size, Properties::Effort::Usual);
    return 0;
}
