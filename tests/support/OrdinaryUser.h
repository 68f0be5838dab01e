#pragma once

#include <gtest/gtest.h>

#include <unistd.h>

/// As long as it lives, the process is a user whom file permissions hold back.
struct OrdinaryUser {
    const bool root = geteuid() == 0;
    OrdinaryUser() { EXPECT_TRUE(!root || seteuid(65534) == 0); }
    ~OrdinaryUser() { EXPECT_TRUE(!root || seteuid(0) == 0); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
};
