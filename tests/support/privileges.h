// Tests often run as the administrator, whom no file permission stops. Within the life of this
// struct the test runs as a user without privileges; an ordinary user stays what he is.
#pragma once

#include <grp.h>
#include <unistd.h>

struct WithoutPrivileges {
    WithoutPrivileges()
        : WasRoot(::getuid() == 0)
        , Works(!WasRoot
              || (::setgroups(0, nullptr) == 0 && ::setresgid(nobody, nobody, 0) == 0
                  && ::setresuid(nobody, nobody, 0) == 0))
    {
    }
    ~WithoutPrivileges()
    {
        if (WasRoot && (::setresuid(0, 0, 0) != 0 || ::setresgid(0, 0, 0) != 0))
            ::_exit(1);
    }
    WithoutPrivileges(const WithoutPrivileges&) = delete;
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

    static constexpr uid_t nobody = 65534;
    bool WasRoot;
    bool Works; ///< false where even the administrator may not change the user
};
