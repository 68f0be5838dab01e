#pragma once
// The base of every window: given names, handlers through one wrapper, key preview, closing rules.

#include "dialogs/Outcome.h"
#include "ui/Fields.h"
#include "ui/RunHandler.h"

#include <QDialog>
#include <QPointer>

#include <limits>
#include <type_traits>
#include <utility>

/// A form, modal to the windows under it; open sheets and drawings beside it go on taking input. Its objectName is its
/// given name, and so is that of every control.
class Form : public QDialog {
    Q_OBJECT
public:
    Form(const QString& name, const QString& caption, QWidget* parent = nullptr);
    ~Form() override;

    /// Shows the form modally over the one that calls it, and returns when it has unloaded.
    /// @param caller  becomes the parent; nullptr: the one that it was made with. Never the window that happens to be
    ///                active: that may be none, or a sheet, and the caller would go on taking input.
    void showModal(QWidget* caller = nullptr);
    /// Closes by program: Form_Unload runs, QueryUnload does not.
    void unload();
    /// Before the form is first seen Form_Load runs; where it fails the form stays hidden.
    void setVisible(bool visible) override;
    /// Esc goes the way of the close box.
    void reject() override { close(); }

protected:
    /// A control with its given name, as child of the form.
    template <class Control, class... Args>
    Control* control(const char* name, Args&&... args)
    {
        auto* made = new Control(std::forward<Args>(args)..., this);
        made->setObjectName(QString::fromUtf8(name));
        if constexpr (std::is_base_of_v<QLineEdit, Control>) {
            made->setMaxLength(std::numeric_limits<int>::max());  // what a file holds is shown and kept whole
            keepOneLine(made);
        }
        if constexpr (std::is_base_of_v<QRadioButton, Control>) keepTabOnChosen(made);
        return made;
    }
    /// Connects a signal to a handler; a run-time error that leaves the handler is fatal (see runHandler).
    template <class Sender, class Signal, class Handler>
    void on(Sender* sender, Signal signal, Handler handler)
    {
        connect(sender, signal, this, [handler](auto&&... args) { runHandler([&] { callWith(handler, args...); }); });
    }

    /// Once, before the form is first seen. Reads what the window shows; ends with ResizeInit where the window scales.
    virtual void Form_Load() {}
    /// In Form_Load: there is nothing to show, the form is never seen.
    void stayClosed() { m_staysClosed = true; }
    /// Close box or Esc: false keeps the window.
    virtual bool QueryUnload() { return true; }
    /// On every closing, before the window goes.
    virtual void Form_Unload() {}
    /// The form previews each key that one of its controls gets (character code, 13 Enter, 8 backspace), and each
    /// character that an input method commits. True: swallowed.
    virtual bool Form_KeyPress(int keyAscii);
    virtual void Form_Resize() {}
    /// Keys that no rule of a window speaks of, such as F5: offered first, from any control. True: done with.
    virtual bool commandKey(const QKeyCombination&) { return false; }
    /// A key that commands again and again while it is held.
    virtual bool commandRepeats(const QKeyCombination&) const { return false; }
    /// Enter sends Tab: the next field in the tab order, its text selected. A Form_KeyPress returns this for 13.
    bool enterSendsTab();

    void refuse(const Refusal& refusal);  ///< its box, then the focus to its field
    void showBox(const QString& text, const QString& title, Icon icon = Icon::Exclamation);

    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    template <class Handler, class... Args>
    static void callWith(Handler& handler, Args&&... args)
    {
        if constexpr (std::is_invocable_v<Handler&, Args...>)
            handler(args...);
        else
            handler();
    }
    bool previewKey(QWidget* target, QKeyEvent* event);
    bool runCommandKey(const QKeyEvent& event);
    bool isFirstReceiver(QWidget* target, const QEvent* event);
    bool keyPress(int keyAscii);

    enum class Life { Fresh, Loaded, Failed, Unloading, Unloaded };
    Life m_life = Life::Fresh;
    bool m_staysClosed = false;
    const QEvent* m_lastEvent = nullptr;  // the key event seen last and who got it:
    QPointer<QWidget> m_lastReceiver;     // an ignored key goes on to the parents and is no new key there
    bool m_resending = false;
};
