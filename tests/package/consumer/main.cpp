// Uses each part of the public interface once, across the library's boundary. Ends with 0 if all of it works.

#include <SMBIOSProtocol/SMBIOSProtocolImpl.h>

#include <cstdio>
#include <exception>
#include <map>
#include <string>
#include <utility>

namespace {

using Protocol::SMBIOS::ISMBIOSProtocol;
using Protocol::SMBIOS::SMBIOSProtocolImpl;
using Nodes = std::map<std::string, _XNode>;

bool allHold = true;

void Expect(bool holds, const char* what)
{
    if (!holds)
        std::printf("does not hold: %s\n", what);
    allHold = allHold && holds;
}

// Sees the search's descents.
class Counting : public SMBIOSProtocolImpl {
public:
    using SMBIOSProtocolImpl::SMBIOSProtocolImpl;

    void SMBiosSearch(std::string path, Nodes& results) override
    {
        ++Calls;
        SMBIOSProtocolImpl::SMBiosSearch(std::move(path), results);
    }

    std::size_t Calls = 0;
};

// A system structure with the manufacturer "Acme", the end of the table, and an entry point of version 2.7
// whose length byte is 0: its bytes sum to nothing.
void TestTree()
{
    unsigned char image[] = {1,   8, 1, 0, 1, 0, 0,   0,   'A', 'c', 'm', 'e', 0, 0,
                             127, 4, 2, 0, 0, 0, '_', 'S', 'M', '_', 0,   0,   2, 7};
    Counting tree(image, sizeof image, "/SMBIOS");
    ISMBIOSProtocol& source = tree;
    Nodes nodes;
    source.SMBiosSearch("/SMBIOS/Type1", nodes);
    Expect(nodes.size() > 1 && tree.Calls == nodes.size(), "a derived class sees descents");

    SMBIOSProtocolImpl& object = tree;
    SMBIOSProtocolImpl copy(object);
    copy = object;
    copy.SMBiosSearch("/SMBIOS/Type1", nodes);
    Expect(nodes.at("/SMBIOS/Type1/Manufacturer").Items.at(0) == "Acme", "the manufacturer is read");
    unsigned int address = 1;
    unsigned int size = 1;
    copy.GetBiosReservedMem(&address, &size);
    Expect(address == 0 && size == 0, "an image has no reserved memory");
}

void TestFailure()
{
    try {
        unsigned char nothing[] = {1, 2, 3};
        const SMBIOSProtocolImpl refused(nothing, sizeof nothing, "/SMBIOS");
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
        Nodes nodes;
        SMBIOSProtocolImpl::CreateInstance().SMBiosSearch("/SMBIOS", nodes);
        Expect(!nodes.empty(), "the machine is read");
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
    TestFailure();
    TestLog();
    TestMachine();
    return allHold ? 0 : 1;
}
