#include "check/CheckSteps.h"

#include <iterator>
#include <utility>

void CheckSteps::once(std::function<void()> work)
{
    again([work = std::move(work)] {
        work();
        return false;
    });
}

void CheckSteps::rows(std::size_t count, std::function<void(std::size_t)> row)
{
    if (count == 0) return;
    again([count, row = std::move(row), next = std::size_t{0}]() mutable {
        row(next);
        return ++next < count;
    });
}

void CheckSteps::again(std::function<bool()> piece) { m_added.push_back(std::move(piece)); }

void CheckSteps::make()
{
    m_waiting.insert(m_waiting.end(), std::move_iterator(m_added.rbegin()), std::move_iterator(m_added.rend()));
    m_added.clear();
    Piece piece = std::move(m_waiting.back());
    m_waiting.pop_back();
    if (piece()) m_waiting.push_back(std::move(piece));
}
