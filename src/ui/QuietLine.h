#pragma once
// A line of text that asks for nothing: grey, or on amber where there is a doubt.

#include <QLabel>

/// Takes no focus. As wide as there is room: a longer text ends in "…", or in narrow windows goes on in a second line,
/// and stands whole in the tool tip.
class QuietLine : public QLabel {
    Q_OBJECT
public:
    explicit QuietLine(QWidget* parent = nullptr);

    void say(const QString& text, bool doubtful = false);
    bool doubtful() const { return autoFillBackground(); }

    void setLines(int lines);
    QSize sizeHint() const override { return {0, m_lines * fontMetrics().height() + 4}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_lines = 1;
};
