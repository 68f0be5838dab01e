#pragma once
// The check in small pieces, so that a window can make it between two events.

#include <cstddef>
#include <functional>
#include <vector>

/// Work that waits, piece after piece. A piece may add further ones: they come before all that waited already, in the
/// order in which they were added.
class CheckSteps {
public:
    void once(std::function<void()> work);
    /// A piece for each row, from 0 to before `count`.
    void rows(std::size_t count, std::function<void(std::size_t)> row);
    /// A piece again and again, until it returns false.
    void again(std::function<bool()> piece);

    bool done() const { return m_waiting.empty() && m_added.empty(); }
    /// Makes the next piece of work that is not done.
    void make();

private:
    using Piece = std::function<bool()>;  // false: it was the last of its kind
    std::vector<Piece> m_waiting;         // the next one at the back
    std::vector<Piece> m_added;           // since the last piece began
};
