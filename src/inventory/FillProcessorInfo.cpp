// The processor inventory: each processor structure (type 4) with a mark whether its socket is populated, and
// the counts of both.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "tree/NodeStore.h"

namespace Protocol::SMBIOS {

// A structure without a status, for lack of bytes, is counted but not copied; the indexes do not close up.
void SMBIOSProtocolImpl::FillProcessorInfo()
{
    const TreeNode* const processors = ResultNodes->Find(RootPath + "/Type4");
    if (processors == nullptr)
        return;
    TreeNode& list = ResultNodes->At(RootPath + "/ProcessorInfo");
    AddNode(list, "TotalNoOfProcessor", NODE_LEAF,
            ResultNodes->Keep(ConvertIntToString(processors->ChildCount)));

    std::size_t present = 0;
    std::size_t n = 0;
    for (const TreeNode* source : ResultNodes->Children(*processors)) {
        ++n;
        const TreeNode* const status = ResultNodes->FindChild(*source, "Status");
        const TreeNode* const populated =
            status == nullptr ? nullptr : ResultNodes->FindChild(*status, "CPU Socket Populated");
        if (populated == nullptr)
            continue;
        const bool isPresent = populated->Value == "Yes";
        if (isPresent)
            ++present;
        TreeNode& copy = ResultNodes->ListInstance(list, n);
        FillInfo(*source, copy);
        AddNode(copy, "ProcessorPresent", NODE_LEAF, isPresent ? "True" : "False");
    }
    AddNode(list, "TotalNoOfProcessorPresent", NODE_LEAF, ResultNodes->Keep(ConvertIntToString(present)));
}

} // namespace Protocol::SMBIOS
