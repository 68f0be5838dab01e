#pragma once
// The doubts about single cells of a run, for standard error: each once, however many rows have it.

#include "base/GridText.h"

#include <algorithm>
#include <string>
#include <vector>

class RunNotes {
public:
    void add(const std::vector<CellNote>& notes)
    {
        for (const auto& note : notes)
            if (std::find(m_texts.begin(), m_texts.end(), note.text) == m_texts.end()) m_texts.push_back(note.text);
    }
    /// A line each, in the order in which they came.
    std::string lines() const
    {
        std::string all;
        for (const auto& text : m_texts) all += text + '\n';
        return all;
    }

private:
    std::vector<std::string> m_texts;
};
