#pragma once
// Roads for the tests of drawings, and what is true of every picture.

#include "plot/Picture.h"
#include "support/ProjectFolder.h"
#include "support/Tables.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

/// A sample project, loaded into the shared tables.
struct Sample {
    explicit Sample(const std::string& name);
    ProjectFolder folder;
};

/// 100 m straight to the north, a spiral of 60 m to radius 200 to the right, an arc of 50 m, all in one azimuth frame.
void setPlainRoad();

/// The texts that lie over one another, by pairs. Two rectangles part where a line along a side of one parts them.
std::vector<std::string> overlaps(const plot::Picture& picture);

inline std::vector<plot::Text> textsOf(const plot::Picture& picture)
{
    std::vector<plot::Text> all;
    for (const auto& entity : picture.entities)
        if (const auto* text = std::get_if<plot::Text>(&entity.shape)) all.push_back(*text);
    return all;
}
inline std::vector<std::string> wordsOf(const plot::Picture& picture)
{
    std::vector<std::string> all;
    for (const auto& text : textsOf(picture)) all.push_back(text.text);
    return all;
}
