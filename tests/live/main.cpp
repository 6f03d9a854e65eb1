// A process can construct the object of its machine once, so each test needs a process of its own. CTest
// starts the tests one by one; started by hand for several tests, this program does so itself.

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <string>

#if defined(_WIN32)
#include <process.h>
#endif

namespace {

bool RunAlone(const std::string& program, const std::string& test)
{
    const std::string filter = "--gtest_filter=" + test;
#if defined(_WIN32)
    return _spawnl(_P_WAIT, program.c_str(), "tests-live", "--gtest_brief=1", filter.c_str(), nullptr) == 0;
#else
    return std::system(("'" + program + "' --gtest_brief=1 " + filter).c_str()) == 0;
#endif
}

bool RunEachAlone(const std::string& program)
{
    bool allPass = true;
    const testing::UnitTest& all = *testing::UnitTest::GetInstance();
    for (int i = 0; i < all.total_test_suite_count(); ++i) {
        const testing::TestSuite& suite = *all.GetTestSuite(i);
        for (int j = 0; j < suite.total_test_count(); ++j) {
            const std::string name = std::string(suite.name()) + "." + suite.GetTestInfo(j)->name();
            if (!RunAlone(program, name)) {
                std::cerr << "FAILED: " << name << std::endl;
                allPass = false;
            }
        }
    }
    return allPass;
}

} // namespace

int main(int count, char* arguments[])
{
    testing::InitGoogleTest(&count, arguments);
    if (testing::GTEST_FLAG(filter) == "*" && !testing::GTEST_FLAG(list_tests))
        return RunEachAlone(arguments[0]) ? 0 : 1;
    return RUN_ALL_TESTS();
}
