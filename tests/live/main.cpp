// A process can construct the object of its machine once, so each test needs a process of its own. CTest
// starts the tests one by one; started by hand for several tests, this program does so itself.

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

int RunEachAlone(const std::string& program)
{
    int failed = 0;
    const testing::UnitTest& all = *testing::UnitTest::GetInstance();
    for (int i = 0; i < all.total_test_suite_count(); ++i) {
        const testing::TestSuite& suite = *all.GetTestSuite(i);
        for (int j = 0; j < suite.total_test_count(); ++j) {
            const std::string name = std::string(suite.name()) + "." + suite.GetTestInfo(j)->name();
            failed += std::system((program + " --gtest_brief=1 --gtest_filter=" + name).c_str()) != 0;
        }
    }
    return failed;
}

} // namespace

int main(int count, char* arguments[])
{
    testing::InitGoogleTest(&count, arguments);
    if (testing::GTEST_FLAG(filter) == "*" && !testing::GTEST_FLAG(list_tests))
        return RunEachAlone(arguments[0]) == 0 ? 0 : 1;
    return RUN_ALL_TESTS();
}
