#pragma once
// What the boxes and pick lists of all forms have in common.

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QWheelEvent>

#include <functional>
#include <string>

using KeySet = bool (*)(int keyAscii);
enum class WhileCtrl { Passes, Filtered };  ///< what the filter does while Ctrl is held

/// Only keys that `keep` accepts enter the box, by key press or by each character that an input method commits; while
/// Ctrl is held anything passes, so that a paste is not filtered. Keys that type nothing always pass. A later call
/// replaces the filter. A character that is swallowed shows for two seconds, under the box, what is allowed.
/// @param allowed  says that; "": made of what `keep` accepts, which then is asked about characters that nobody typed
void filterKeys(QLineEdit* box, std::function<bool(int keyAscii)> keep, WhileCtrl whileCtrl = WhileCtrl::Passes,
                const QString& allowed = {});
/// What a filter lets through, in words: 只能输入数字和小数点.
QString allowedKeys(const std::function<bool(int keyAscii)>& keep);
/// Shows the words for two seconds under `rect` of the widget. They take no focus and no key.
void showAllowed(QWidget* under, const QRect& rect, const QString& allowed);

/// What stands before the first line end; the whole text where there is none.
QString upToLineEnd(const QString& text);
/// A box of one line: of what a person pastes, drops or composes only the part before the first line end goes in. Texts
/// that the program sets stay whole.
void keepOneLine(QLineEdit* box);

/// The tab key stops at the chosen one of a group of options, from its first choice on.
void keepTabOnChosen(QRadioButton* option);

/// Locked: read only, grey, out of the tab order. Open: white.
void setLocked(QLineEdit* box, bool locked);

/// A pick list with an editable text: typing sets the text back through `Change`; picking fires `Click`, the same item
/// included; nothing is picked at first. Keys and the open list pick, the wheel does not: it turns over the window.
class PickList : public QComboBox {
    Q_OBJECT
public:
    explicit PickList(QWidget* parent = nullptr);
    void AddItem(const QString& text);
    int ListIndex() const { return m_picked; }  ///< -1 while nothing is picked, and after the text was typed or set
    QString Text() const { return currentText(); }
    void setText(const QString& text);  ///< the shown text alone, no event
signals:
    void Click();
    void Change();  ///< after each character typed

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }

private:
    int m_picked = -1;
};

QString fromUtf8(const std::string& text);
std::string toUtf8(const QString& text);
