#pragma once
// The base of every window: given names, handlers through one wrapper, key preview, closing rules, the house look.

#include "desk/Outcome.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>

#include <functional>
#include <string>
#include <type_traits>
#include <utility>

/// A modal form. Its objectName is its given name, and so is that of every control.
class Form : public QDialog {
    Q_OBJECT
public:
    Form(const QString& name, const QString& caption, QWidget* parent = nullptr);

    /// Shows the form modally over the active one and returns when it has unloaded.
    void showModal();
    /// Closes by program: Form_Unload runs, QueryUnload does not.
    void unload();

protected:
    /// A control with its given name, as child of the form.
    template <class Control, class... Args>
    Control* control(const char* name, Args&&... args)
    {
        auto* made = new Control(std::forward<Args>(args)..., this);
        made->setObjectName(QString::fromUtf8(name));
        return made;
    }
    /// Connects a signal to a handler; a run-time error that leaves the handler is fatal (see runHandler).
    template <class Sender, class Signal, class Handler>
    void on(Sender* sender, Signal signal, Handler handler)
    {
        connect(sender, signal, this, [handler](auto&&... args) { runBody([&] { callWith(handler, args...); }); });
    }

    /// Close box or Esc: false keeps the window.
    virtual bool QueryUnload() { return true; }
    /// On every closing, before the window goes.
    virtual void Form_Unload() {}
    /// The form previews each key that one of its controls gets (character code, 13 Enter, 8 backspace). True:
    /// swallowed.
    virtual bool Form_KeyPress(int keyAscii);
    virtual void Form_Resize() {}
    /// Enter sends Tab: the next field in the tab order, its text selected. A Form_KeyPress returns this for 13.
    bool enterSendsTab();

    void refuse(const Refusal& refusal);  ///< its box, then the focus to its field
    void showBox(const QString& text, const QString& title, Icon icon = Icon::Exclamation);

    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static void runBody(const std::function<void()>& body);
    template <class Handler, class... Args>
    static void callWith(Handler& handler, Args&&... args)
    {
        if constexpr (std::is_invocable_v<Handler&, Args...>)
            handler(args...);
        else
            handler();
    }
    bool m_unloading = false;
};

using KeySet = bool (*)(int keyAscii);
/// Only keys of the set enter the box, by key press or by each character that an input method commits; while Ctrl is
/// held anything passes.
void filterKeys(QLineEdit* box, KeySet set);
/// Locked: read only, grey, out of the tab order. Open: white.
void setLocked(QLineEdit* box, bool locked);
/// A pick list with an editable text: typing sets the text back through `Change`; picking fires `Click`, the same item
/// included; nothing is picked at first.
class PickList : public QComboBox {
    Q_OBJECT
public:
    explicit PickList(QWidget* parent = nullptr);
    void AddItem(const QString& text);
    int ListIndex() const;  ///< -1 while nothing is picked
    QString Text() const;
    void setText(const QString& text);  ///< the shown text alone, no event
signals:
    void Click();
    void Change();
};

QString fromUtf8(const std::string& text);
std::string toUtf8(const QString& text);
