// The processor inventory: each processor structure (type 4) with a mark whether its socket is populated, and
// the counts of both.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "tree/NodeStore.h"

namespace Protocol::SMBIOS {

// A structure without a status, for lack of bytes, is counted but not copied; the indexes do not close up.
void SMBIOSProtocolImpl::FillProcessorInfo()
{
    const TreeNode* const processors = FindNode(RootPath + "/Type4");
    if (processors == nullptr)
        return;
    const std::string listPath = RootPath + "/ProcessorInfo";
    TreeNode& list = NodeAt(listPath);
    AddNode(listPath, "/TotalNoOfProcessor", ConvertIntToString(processors->Children.size()), NODE_LEAF);

    std::size_t present = 0;
    for (std::size_t n = 1; n <= processors->Children.size(); ++n) {
        const std::string index = "[" + std::to_string(n) + "]";
        const std::string source = RootPath + "/Type4" + index;
        const TreeNode* const populated = FindNode(source + "/Status/CPU Socket Populated");
        if (populated == nullptr)
            continue;
        const bool isPresent = populated->Value.find("Yes") != std::string_view::npos;
        if (isPresent)
            ++present;
        ListInstance(list, n);
        FillInfo(listPath, source, '4');
        AddNode(listPath + index, "/ProcessorPresent", isPresent ? "True" : "False", NODE_LEAF);
    }
    AddNode(listPath, "/TotalNoOfProcessorPresent", ConvertIntToString(present), NODE_LEAF);
}

} // namespace Protocol::SMBIOS
