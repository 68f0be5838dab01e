#pragma once
// The dialogs of a test: answers in the order given, keeps every message, and fails the test on a question that nobody
// answers and on an answer that nobody asked for.
//
//     ScriptedDialogs dialogs;                       // in use until it goes out of scope
//     dialogs.yes().open("/tmp/points.txt");      // a question, then a file dialog
//     ...
//     EXPECT_EQ(dialogs.messages, (std::vector<Msg>{{"…", "注意", Icon::Exclamation}}));
//
// A box with OK alone needs no answer; what it said is in `messages`. problems() is empty in a test that went well and
// is reported by the destructor, once; a test of the dialogs itself takes the problems away with takeProblems().

#include "dialogs/Dialogs.h"

#include <deque>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#if __has_include(<QtTest/QTest>)
#include <QtTest/QTest>
#else
#include <gtest/gtest.h>
#endif

/// A message in the words of a failed comparison.
inline void PrintTo(const Msg& msg, std::ostream* out)
{
    *out << '"' << msg.text << "\", title \"" << msg.title << "\", icon " << static_cast<int>(msg.icon) << ", buttons "
         << msg.buttons << ", default " << msg.preset;
}

class ScriptedDialogs final : public Dialogs {
public:
    std::vector<Msg> messages;           ///< every box, in order
    std::vector<std::string> filters;    ///< of every file dialog, in order
    std::vector<std::string> proposals;  ///< of every save dialog that begins with a name
    int turns = 0;                       ///< turns of the event loop
    std::function<void()> onTurn;        ///< runs at each turn
    std::function<void()> onBox;         ///< runs while a box is up, after it went into messages

    ScriptedDialogs() { setDialogs(this); }
    ScriptedDialogs(const ScriptedDialogs&) = delete;
    ScriptedDialogs& operator=(const ScriptedDialogs&) = delete;
    ~ScriptedDialogs() override
    {
        setDialogs(nullptr);
        for (const auto& problem : problems()) {
#if __has_include(<QtTest/QTest>)
            QTest::qFail(problem.c_str(), __FILE__, __LINE__);
#else
            ADD_FAILURE() << problem;
#endif
        }
    }

    // Answers, in the order of the questions.
    ScriptedDialogs& yes() { return expect({Question, "yes"}); }
    ScriptedDialogs& no() { return expect({Question, std::nullopt}); }
    ScriptedDialogs& open(std::string path) { return expect({OpenFile, std::move(path)}); }
    ScriptedDialogs& cancelOpen() { return expect({OpenFile, std::nullopt}); }
    ScriptedDialogs& save(std::string path) { return expect({SaveFile, std::move(path)}); }
    ScriptedDialogs& cancelSave() { return expect({SaveFile, std::nullopt}); }

    /// What went wrong so far, answers that wait in vain included.
    std::vector<std::string> problems() const
    {
        auto all = m_problems;
        for (const auto& answer : m_answers)
            all.push_back(std::string("no one asked for an answer to ") + name(answer.kind));
        return all;
    }
    /// Hands the problems out instead of failing the test.
    std::vector<std::string> takeProblems()
    {
        auto all = problems();
        m_problems.clear();
        m_answers.clear();
        return all;
    }

    /// The last box, an empty one where there was none.
    Msg last() const { return messages.empty() ? Msg{} : messages.back(); }

    bool box(const Msg& msg) override
    {
        messages.push_back(msg);
        if (onBox) onBox();
        return msg.buttons == Msg::Ok || answer(Question, msg.text).has_value();
    }
    void turn() override
    {
        ++turns;
        if (onTurn) onTurn();
    }
    std::optional<std::string> openFile(std::string_view filter) override
    {
        filters.emplace_back(filter);
        return answer(OpenFile, filters.back());
    }
    std::optional<std::string> saveFileAs(std::string_view filter, std::string_view proposed) override
    {
        proposals.emplace_back(proposed);
        return saveFile(filter);
    }
    std::optional<std::string> saveFile(std::string_view filter) override
    {
        filters.emplace_back(filter);
        return answer(SaveFile, filters.back());
    }

private:
    enum Kind { Question, OpenFile, SaveFile };
    struct Answer {
        Kind kind;
        std::optional<std::string> text;
    };
    std::deque<Answer> m_answers;
    std::vector<std::string> m_problems;

    static const char* name(Kind kind)
    {
        return kind == Question ? "a question" : kind == OpenFile ? "an open dialog" : "a save dialog";
    }
    ScriptedDialogs& expect(Answer answer)
    {
        m_answers.push_back(std::move(answer));
        return *this;
    }
    std::optional<std::string> answer(Kind kind, const std::string& about)
    {
        if (m_answers.empty() || m_answers.front().kind != kind) {
            m_problems.push_back(std::string("no answer to ") + name(kind) + ": " + about);
            return std::nullopt;  // No, Cancel
        }
        auto text = std::move(m_answers.front().text);
        m_answers.pop_front();
        return text;
    }
};
