#pragma once
// A text file of a batch and what reading it gives.

#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"
#include "screens/BatchFile.h"
#include "support/ProjectFolder.h"
#include "support/ScreenTest.h"

#include <gtest/gtest.h>

struct BatchFile : testing::Test {
    ProjectFolder folder;
    std::string path = folder.root() + "/批量.txt";

    void write(const std::string& bytes) const { WriteBytes(path, bytes); }
    std::string bytes() const { return ProjectFolder::bytesOf(path); }
    std::vector<BatchLine> read(const std::string& text)
    {
        write(text);
        return ReadBatchFile(path, 2);
    }
    int failure(const std::string& text)
    {
        return fatalError([&] { read(text); });
    }
};
