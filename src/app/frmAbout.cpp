#include "app/frmAbout.h"

#include "app/Icons.h"
#include "controls/XPButton.h"
#include "ui/Platform.h"
#include "ui/Theme.h"

#include <QBoxLayout>
#include <QMouseEvent>

ClickLabel::ClickLabel(const QString& text, QWidget* parent) : QLabel(text, parent)
{
    setCursor(Qt::PointingHandCursor);
    auto colors = palette();
    colors.setColor(QPalette::WindowText, colors.color(QPalette::Link));
    setPalette(colors);
    auto underlined = font();
    underlined.setUnderline(true);
    setFont(underlined);
}

void ClickLabel::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) emit Click();
}

frmAbout::frmAbout() : Form(QStringLiteral("frmAbout"), QStringLiteral("Velumark " VM_VERSION))
{
    auto* Image1 = control<QLabel>("Image1");
    Image1->setPixmap(programIcon().pixmap(QSize(96, 96), devicePixelRatioF()));
    auto* Label1 = control<ClickLabel>("Label1", QStringLiteral("https://velumark.org/"));
    auto* Label2 = control<QLabel>("Label2", QStringLiteral("Velumark 项目组"));
    auto* Label3 = control<QLabel>("Label3", QStringLiteral("意见和建议请在项目主页上提出"));
    auto* Label4 = control<QLabel>(
        "Label4",
        QStringLiteral(
            "自由软件，按 GNU 通用公共许可证第 3 版或更新的版本发布，\n不附带任何担保，全文见程序旁的 LICENSE 文件。"));
    auto* cmdAboutClose = control<XPButton>("cmdAboutClose", QStringLiteral("关  闭"));
    cmdAboutClose->setMinimumSize(88, 32);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(theme::kGrid);
    for (auto* label : {Label2, static_cast<QLabel*>(Label1), Label3, Label4})
        texts->addWidget(label, 0, Qt::AlignLeft);
    texts->addStretch(1);
    auto* top = new QHBoxLayout;
    top->setSpacing(2 * theme::kMargin);
    top->addWidget(Image1, 0, Qt::AlignTop);
    top->addLayout(texts, 1);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(2 * theme::kMargin, 2 * theme::kMargin, 2 * theme::kMargin, theme::kMargin);
    all->setSpacing(2 * theme::kGrid);
    all->addLayout(top, 1);
    all->addWidget(cmdAboutClose, 0, Qt::AlignRight);
    all->setSizeConstraint(QLayout::SetFixedSize);

    on(Label1, &ClickLabel::Click, [Label1] { platform().open(Label1->text()); });
    on(cmdAboutClose, &XPButton::Click, [this] { unload(); });
}
