#include "system/confinement.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <exception>
#include <thread>

#if __has_include(<linux/landlock.h>)
#include <linux/landlock.h>
#endif

namespace kvt {

namespace {

#ifdef LANDLOCK_CREATE_RULESET_VERSION

// Everything that changes a file or a folder, as far as this version of the kernel's rules knows it.
std::uint64_t Changes(long version) {
    std::uint64_t rights = LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_REMOVE_DIR |
                           LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_CHAR |
                           LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_MAKE_REG |
                           LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO |
                           LANDLOCK_ACCESS_FS_MAKE_BLOCK | LANDLOCK_ACCESS_FS_MAKE_SYM;
#ifdef LANDLOCK_ACCESS_FS_REFER
    if (version >= 2) rights |= LANDLOCK_ACCESS_FS_REFER;
#endif
#ifdef LANDLOCK_ACCESS_FS_TRUNCATE
    if (version >= 3) rights |= LANDLOCK_ACCESS_FS_TRUNCATE;
#endif
    return rights;
}

// Below 1 for a kernel without rules.
long RulesVersion() {
    return syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
}

void Permit(int rules, const std::filesystem::path& path, std::uint64_t rights) {
    const int handle = open(path.c_str(), O_PATH | O_CLOEXEC);
    if (handle < 0) return;
    landlock_path_beneath_attr rule = {};
    rule.allowed_access = rights;
    rule.parent_fd = handle;
    syscall(SYS_landlock_add_rule, rules, LANDLOCK_RULE_PATH_BENEATH, &rule, 0);
    close(handle);
}

// For the calling thread and what it starts.
void Confine(const std::vector<std::filesystem::path>& folders) {
    const long version = RulesVersion();
    if (version < 1) return;
    landlock_ruleset_attr handled = {};
    handled.handled_access_fs = Changes(version);
    const int rules =
        static_cast<int>(syscall(SYS_landlock_create_ruleset, &handled, sizeof handled.handled_access_fs, 0));
    if (rules < 0) return;
    for (const std::filesystem::path& folder : folders) Permit(rules, folder, handled.handled_access_fs);
    Permit(rules, "/dev/null", LANDLOCK_ACCESS_FS_WRITE_FILE);
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0) syscall(SYS_landlock_restrict_self, rules, 0);
    close(rules);
}

#else

long RulesVersion() { return 0; }

void Confine(const std::vector<std::filesystem::path>&) {}

#endif

}  // namespace

bool CanConfine() { return RulesVersion() >= 1; }

void RunConfined(const std::vector<std::filesystem::path>& folders, const std::function<void()>& body) {
    std::exception_ptr failure;
    std::thread([&] {
        try {
            Confine(folders);
            body();
        } catch (const std::exception&) {
            failure = std::current_exception();
        }
    }).join();
    if (failure) std::rethrow_exception(failure);
}

}  // namespace kvt
