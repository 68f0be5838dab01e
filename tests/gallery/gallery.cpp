// Pictures to look at: every button in every style and state, and a window laid out with the kit.

#include "controls/XPButton.h"
#include "ui/Form.h"
#include "ui/Layout.h"
#include "ui/MSFlexGrid.h"
#include "ui/QtDialogs.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QTimer>

namespace {

QImage marker(bool mask)
{
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(mask ? Qt::white : Qt::black);
    QPainter painter(&image);
    painter.setBrush(mask ? Qt::black : QColor(0x1F, 0x5F, 0xA8));
    painter.setPen(Qt::NoPen);
    painter.drawPolygon(QPolygon({{8, 1}, {15, 14}, {1, 14}}));
    return image;
}

struct Shown {
    const char* name;
    bool enabled, hover, pressed, hasFocus;
};
constexpr Shown kStates[] = {{"平常", true, false, false, false}, {"悬停", true, true, false, false},
                             {"焦点", true, false, false, true},  {"悬停+焦点", true, true, false, true},
                             {"按下", true, true, true, false},   {"按下+焦点", true, true, true, true},
                             {"停用", false, false, false, false}};

/// @param ratio screen pixels a logical pixel, drawn as the widget does
QImage buttonSheet(int zoom)
{
    const QSize size(92, 28);
    const int left = 60, top = 30, dx = 110, dy = 44;
    QImage sheet(left + dx * 8, top + dy * 8, QImage::Format_RGB32);
    sheet.fill(QColor(0xF3, 0xF4, 0xF6));
    QPainter painter(&sheet);
    int row = 0;
    for (int style = 1; style <= 4; ++style)
        for (const bool withIcon : {false, true}) {
            painter.drawText(4, top + row * dy + 18, QStringLiteral("样式 %1").arg(style));
            int col = 0;
            for (const auto& shown : kStates) {
                XPButtonState state;
                state.caption = withIcon ? QStringLiteral("保 存") : QStringLiteral("删除一行");
                state.colorStyle = style;
                state.font = QApplication::font();
                state.enabled = shown.enabled;
                state.hover = shown.hover;
                state.pressed = shown.pressed;
                state.hasFocus = shown.hasFocus;
                if (withIcon) {
                    state.icon = marker(false);
                    state.iconMask = marker(true);
                    state.roundedValue = style == 2 ? 0 : 5;
                }
                painter.save();
                painter.translate(left + col * dx, top + row * dy);
                paintXPButton(painter, size, state);
                painter.restore();
                if (row == 0) painter.drawText(left + col * dx, 20, QString::fromUtf8(shown.name));
                ++col;
            }
            ++row;
        }
    return sheet.scaled(sheet.size() * zoom);
}

class frmGallery : public Form {
public:
    frmGallery() : Form(QStringLiteral("frmGallery"), QStringLiteral("计算单个点坐标"))
    {
        auto* stake = control<QLineEdit>("txtStake");
        auto* side = control<PickList>("comSide");
        for (const auto* item : {"中桩", "左边桩", "右边桩"}) side->AddItem(QString::fromUtf8(item));
        side->setText(QStringLiteral("中桩"));
        auto* offset = control<QLineEdit>("txtOffset");
        setLocked(offset, true);
        auto* skew = control<QCheckBox>("cheSkew", QStringLiteral("夹角"));
        auto* angle = control<QLineEdit>("txtAngle");
        auto* station = control<PickList>("comStation");
        auto* typed = control<QCheckBox>("cheTyped", QStringLiteral("输入坐标"));
        auto* x = control<QLineEdit>("txtX");
        auto* y = control<QLineEdit>("txtY");
        for (auto* box : {stake, offset, angle, x, y}) ui::fitDigits(box);
        for (auto* box : {angle, x, y}) setLocked(box, true);
        stake->setText(QStringLiteral("12345678.123"));
        auto* calc = control<XPButton>("butCalc", QStringLiteral("计 算"));
        auto* del = control<XPButton>("butDel", QStringLiteral("删除一行"));
        auto* save = control<XPButton>("butSave", QStringLiteral("保 存"));
        auto* back = control<XPButton>("butBack", QStringLiteral("返 回"));
        save->setEnabled(false);
        m_grid = control<MSFlexGrid>("Msfg");
        m_grid->setCols(9);
        const char* headers[] = {"序号", "里 程", "中边桩", "夹 角", "方位角", "距 离", "X坐标", "Y坐标", "切线方位角"};
        const int widths[] = {800, 2000, 1800, 1900, 1900, 1200, 1500, 1500, 1900};
        for (int col = 0; col < 9; ++col) {
            m_grid->setTextMatrix(0, col, QString::fromUtf8(headers[col]));
            m_grid->setColWidth(col, widths[col]);
            m_grid->setColAlignment(col, Qt::AlignCenter);
        }
        m_grid->setHint(QStringLiteral("输入里程，按“计 算”得到坐标"));
        using namespace ui;
        arrange(*this, {across({frame(QStringLiteral("桩号与偏距"),
                                      fieldTable({{{QStringLiteral("计算里程"), stake}, {QStringLiteral("边桩"), side}},
                                                  {{skew, angle}, {QStringLiteral("偏距"), offset}}})),
                                frame(QStringLiteral("测站"),
                                      fieldTable({{{QStringLiteral("测站点"), station}, {typed, nullptr}},
                                                  {{QStringLiteral("X"), x}, {QStringLiteral("Y"), y}}}))}),
                        m_grid, buttonRow({calc, del, save, back})});
    }
    void fill()
    {
        for (int i = 0; i < 12; ++i)
            m_grid->appendRow({{"K12+345.678", "左12.5米", "无", "123度45分06秒", "1234.567", "3456789.123",
                                "512345.678", "123度45分06秒"},
                               i == 4 ? "该里程没有线元，坐标是上一次的结果" : ""});
    }

private:
    MSFlexGrid* m_grid;
};

}  // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    applyTheme(app);
    QtDialogs onScreen;
    setDialogs(&onScreen);
    const QString folder = QString::fromLocal8Bit(argc > 1 ? argv[1] : ".");
    buttonSheet(1).save(folder + QStringLiteral("/buttons.png"));
    buttonSheet(4).save(folder + QStringLiteral("/buttons-4x.png"));
    frmGallery form;
    form.show();
    QTimer::singleShot(300, [&] {
        form.grab().save(folder + QStringLiteral("/form-empty.png"));
        form.fill();
    });
    QTimer::singleShot(700, [&] {
        form.grab().save(folder + QStringLiteral("/form.png"));
        QTimer::singleShot(300, [&] {
            QApplication::activeModalWidget()->grab().save(folder + QStringLiteral("/question.png"));
            if (auto* box = QApplication::activeModalWidget(); box != &form) box->close();
        });
        dialogs().box(
            {.text = "数据已改变，是否保存？", .title = "注意", .icon = Icon::Question, .buttons = Msg::YesNo});
        QTimer::singleShot(500, [&] {
            QApplication::activeModalWidget()->grab().save(folder + QStringLiteral("/open.png"));
            if (auto* box = QApplication::activeModalWidget(); box != &form) box->close();
        });
        dialogs().saveFile("(*.xls)|*.xls|");
        app.quit();
    });
    return QApplication::exec();
}
