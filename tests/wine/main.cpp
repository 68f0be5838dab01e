#include "base/Machine.h"
#include "base/ReplaceFile.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    const auto words = ArgumentsOf(argc, argv);
    if (words.size() == 2 && words[0] == "--write-forever")
        for (bool one = false;; one = !one)
            WriteBytes(words[1], one ? std::string(300'000, '1') : std::string(200'000, '2'));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
