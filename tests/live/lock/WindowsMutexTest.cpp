// The mutex behind the lock on Windows, which any account may come first to make.

#include "Attempt.h"

#include <gtest/gtest.h>

#include <memory>
// windows.h comes first: these need it.
#include <windows.h>

#include <aclapi.h>
#include <sddl.h>

using Common::CMySemLock;

namespace {

constexpr DWORD NeededByOthers = SYNCHRONIZE | MUTEX_MODIFY_STATE;

HANDLE MutexWith(const char* rights, const LockName& name)
{
    SECURITY_ATTRIBUTES attributes = {sizeof attributes, nullptr, FALSE};
    if (!ConvertStringSecurityDescriptorToSecurityDescriptorA(rights, SDDL_REVISION_1,
                                                              &attributes.lpSecurityDescriptor, nullptr))
        return nullptr;
    const HANDLE mutex = CreateMutexA(&attributes, FALSE, ("Global\\" + name.Text).c_str());
    LocalFree(attributes.lpSecurityDescriptor);
    return mutex;
}

// What everyone may do with the mutex.
DWORD RightsOfAll(HANDLE mutex)
{
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    PACL list = nullptr;
    if (GetSecurityInfo(mutex, SE_KERNEL_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &list, nullptr,
                        &descriptor) != ERROR_SUCCESS)
        return 0;
    DWORD rights = 0;
    for (DWORD i = 0; list != nullptr && i < list->AceCount; ++i) {
        void* entry = nullptr;
        GetAce(list, i, &entry);
        auto* const allowed = static_cast<ACCESS_ALLOWED_ACE*>(entry);
        if (allowed->Header.AceType == ACCESS_ALLOWED_ACE_TYPE &&
            IsWellKnownSid(&allowed->SidStart, WinWorldSid))
            rights |= allowed->Mask;
    }
    LocalFree(descriptor);
    return rights;
}

TEST(LockMutex, OfAnotherAccountIsOpenedWithTheRightsThatItGives)
{
    const LockName name;
    const HANDLE others = MutexWith("D:(A;;0x100000;;;WD)", name);
    ASSERT_NE(others, nullptr);
    const HANDLE all = OpenMutexA(MUTEX_ALL_ACCESS, FALSE, ("Global\\" + name.Text).c_str());
    EXPECT_EQ(all, nullptr) << "the rights are not checked here";
    const Attempt attempt(name.Text);
    EXPECT_EQ(attempt.Error, 0);
    EXPECT_TRUE(attempt.Log.empty());
    CloseHandle(others);
}

TEST(LockMutex, CanBeTakenByOtherAccountsAndNoMore)
{
    const LockName name;
    _MY_LOCK lock;
    ASSERT_EQ(CMySemLock::AcquireSymLock(lock, name.Text.c_str()), 0);
    const HANDLE mutex = OpenMutexA(SYNCHRONIZE | READ_CONTROL, FALSE, ("Global\\" + name.Text).c_str());
    EXPECT_NE(mutex, nullptr);
    EXPECT_EQ(RightsOfAll(mutex), NeededByOthers);
    CloseHandle(mutex);
    CMySemLock::ReleaseSymLock(lock);
}

} // namespace
