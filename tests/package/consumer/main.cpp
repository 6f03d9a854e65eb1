// Uses each part of the public interface once, across the library's boundary. Ends with 0 if all of it works.

#include <SMBIOSProtocol/SMBIOSProtocolImpl.h>

#include <cstdio>
#include <exception>
#include <map>
#include <string>
#include <vector>

namespace {

using Protocol::SMBIOS::ISMBIOSProtocol;
using Protocol::SMBIOS::SMBIOSProtocolImpl;
using Image = std::vector<unsigned char>;

bool allHold = true;

void Expect(bool holds, const char* what)
{
    if (!holds) {
        std::printf("does not hold: %s\n", what);
        allHold = false;
    }
}

// A system structure with the manufacturer "Acme", the end of the table, and an entry point of version 2.7.
Image SmallImage()
{
    Image image{1, 8, 1, 0, 1, 0, 0, 0, 'A', 'c', 'm', 'e', 0, 0, 127, 4, 2, 0, 0, 0};
    Image entryPoint{'_', 'S', 'M', '_', 0, 31, 2, 7};
    entryPoint.resize(31);
    unsigned int sum = 0;
    for (const unsigned char byte : entryPoint)
        sum += byte;
    entryPoint[4] = static_cast<unsigned char>(0U - sum);
    image.insert(image.end(), entryPoint.begin(), entryPoint.end());
    return image;
}

SMBIOSProtocolImpl Decoded(Image image)
{
    return {image.data(), static_cast<unsigned short>(image.size()), "/SMBIOS"};
}

std::string LeafAt(ISMBIOSProtocol& source, const std::string& path)
{
    std::map<std::string, _XNode> results;
    source.SMBiosSearch(path, results);
    return results.empty() ? "" : results.at(path).Items.at(0);
}

// Sees the search's descents.
class Counting : public SMBIOSProtocolImpl {
public:
    using SMBIOSProtocolImpl::SMBIOSProtocolImpl;

    void SMBiosSearch(std::string path, std::map<std::string, _XNode>& results) override
    {
        ++Calls;
        SMBIOSProtocolImpl::SMBiosSearch(std::move(path), results);
    }

    int Calls = 0;
};

void TestTree()
{
    SMBIOSProtocolImpl tree = Decoded(SmallImage());
    SMBIOSProtocolImpl copy(tree);
    tree = copy;
    Expect(LeafAt(tree, "/SMBIOS/Type1/Manufacturer") == "Acme", "the manufacturer is read");

    unsigned int address = 1;
    unsigned int size = 1;
    tree.GetBiosReservedMem(&address, &size);
    Expect(address == 0 && size == 0, "an image has no reserved memory");
}

void TestDerivedClass()
{
    Image image = SmallImage();
    Counting tree(image.data(), static_cast<unsigned short>(image.size()), "/SMBIOS");
    LeafAt(tree, "/SMBIOS/Type1/Manufacturer");
    std::map<std::string, _XNode> results;
    tree.SMBiosSearch("/SMBIOS/Type1", results);
    Expect(results.size() > 1 && tree.Calls == static_cast<int>(results.size()) + 1,
           "a derived class sees descents");
}

void TestFailure()
{
    try {
        Decoded({1, 2, 3});
        Expect(false, "an image without an entry point is refused");
    } catch (const std::exception& caught) {
        const auto* failure = dynamic_cast<const ResultStatus*>(&caught);
        Expect(failure != nullptr && failure->Code() == RESULT_NO_TABLE &&
                   failure->Message() == caught.what(),
               "the failure arrives as what it was thrown");
    }
}

void TestLog()
{
    LOGGER::Logger& logger = LOGGER::Logger::CreateInstance();
    std::string line;
    logger.SetSink([&line](const LOGGER::LogLine& logged) { line = logged.Message; });
    logger.Log(2, "main.cpp", "TestLog", __LINE__, "%d lines", 1);
    logger.SetSink({});
    std::string expanded;
    logger.CreateMessage(expanded, "%d lines", 2);
    Expect(line == "1 lines" && expanded == "2 lines", "the log formats");
}

// Whether this machine can be read is no matter here: a failure has to arrive as one of those documented.
void TestMachine()
{
    try {
        Expect(LeafAt(SMBIOSProtocolImpl::CreateInstance(), "/SMBIOS").rfind("/SMBIOS/", 0) == 0,
               "the machine is read");
    } catch (const ResultStatus& failure) {
        Expect(!failure.Message().empty(), "a failure has a text");
    } catch (const Protocol::SMBIOS::TreeTooLarge&) {
        Expect(false, "no machine's tree is too large");
    }
}

} // namespace

int main()
{
    TestTree();
    TestDerivedClass();
    TestFailure();
    TestLog();
    TestMachine();
    return allHold ? 0 : 1;
}
