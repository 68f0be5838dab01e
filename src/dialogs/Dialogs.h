#pragma once
// The one seam to the person: boxes, files to choose, a turn of the event loop. Windows on Qt (platform/QtDialogs.h);
// standard error in the companion; scripted in tests.

#include <optional>
#include <string>
#include <string_view>
#include <utility>

enum class Icon { None, Information, Exclamation, Critical, Question };

/// A message box. Texts are UTF-8.
struct Msg {
    enum Buttons { Ok, YesNo };
    enum Default { Yes, No };

    std::string text;
    std::string title;
    Icon icon = Icon::None;
    Buttons buttons = Ok;
    Default preset = Yes;  ///< of a question

    bool operator==(const Msg&) const = default;
};

class Dialogs {
public:
    virtual ~Dialogs() = default;
    /// Shows a box. True: OK or Yes.
    virtual bool box(const Msg& msg) = 0;
    /// A turn of the event loop in long work that must not be disturbed: painting and timers, no input of the person.
    virtual void turn() = 0;
    /// A turn in work that may never end: the person's input is taken too, and where nothing waits the processor rests.
    virtual void turnWithInput() { turn(); }
    /// A file to read. @param filter as "(*.txt)|*.txt|"; nullopt: Cancel
    virtual std::optional<std::string> openFile(std::string_view filter) = 0;
    /// A file to write, the name just as given: no question about overwriting, no extension added. nullopt: Cancel
    virtual std::optional<std::string> saveFile(std::string_view filter) = 0;
    /// saveFile with a name to begin with, which the person may change or empty.
    virtual std::optional<std::string> saveFileAs(std::string_view filter, std::string_view proposed)
    {
        static_cast<void>(proposed);  // nobody to propose it to
        return saveFile(filter);
    }
};

/// The dialogs in use, set at process start and by tests.
Dialogs& dialogs();
void setDialogs(Dialogs* dialogs);

/// While one stands, whoever asks for a file to read is given this one unasked; all else goes to the dialogs in use.
class FileGiven : public Dialogs {
public:
    explicit FileGiven(std::string path) : m_path(std::move(path)), m_person(dialogs()) { setDialogs(this); }
    ~FileGiven() override { setDialogs(&m_person); }
    FileGiven(const FileGiven&) = delete;
    FileGiven& operator=(const FileGiven&) = delete;

    bool box(const Msg& msg) override { return m_person.box(msg); }
    void turn() override { m_person.turn(); }
    void turnWithInput() override { m_person.turnWithInput(); }
    std::optional<std::string> openFile(std::string_view) override { return m_path; }
    std::optional<std::string> saveFile(std::string_view filter) override { return m_person.saveFile(filter); }
    std::optional<std::string> saveFileAs(std::string_view filter, std::string_view proposed) override
    {
        return m_person.saveFileAs(filter, proposed);
    }

private:
    std::string m_path;
    Dialogs& m_person;
};
