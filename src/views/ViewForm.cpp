#include "views/ViewForm.h"

#include "controls/XPButton.h"
#include "dialogs/Messages.h"
#include "plot/Svg.h"
#include "ui/Layout.h"
#include "ui/Paper.h"
#include "ui/RunHandler.h"
#include "ui/Theme.h"
#include "views/DrawingArea.h"
#include "views/PicturePainter.h"

#include <QBuffer>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMenu>

namespace {

constexpr double kScales[] = {100, 200, 500, 1000, 2000, 5000, 10000, 20000, 50000};

}  // namespace

ViewForm::ViewForm(const QString& name, const QString& caption, plot::Order::Kind kind, ViewSource source)
    : Form(name, caption), m_notice(control<QLabel>("lblNotice")), m_readOut(control<QLabel>("lblReadOut")),
      m_kind(kind), m_source(std::move(source)), m_road(std::make_unique<plot::Road>(*m_source.tables)),
      m_scale(control<QComboBox>("comBl")), m_paper(control<QComboBox>("comTz")),
      m_export(control<XPButton>("cmdDc", QStringLiteral("导 出"))),
      m_back(control<XPButton>("cmdBack", QStringLiteral("返 回")))
{
    m_notice->setAutoFillBackground(true);
    m_notice->setContentsMargins(theme::kGrid, 2, theme::kGrid, 2);
    m_notice->setWordWrap(true);
    QPalette amber = m_notice->palette();
    amber.setColor(QPalette::Window, theme::kAmber);
    m_notice->setPalette(amber);
    m_notice->hide();
    m_readOut->setFont(numberFont(m_readOut->font()));
    m_readOut->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_readOut->setFocusPolicy(Qt::NoFocus);
    m_readOut->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_scale->addItem(QStringLiteral("一张图纸"));
    for (const double scale : kScales) m_scale->addItem(QStringLiteral("1:%1").arg(scale));
    m_scale->setToolTip(QStringLiteral("导出的比例；一张图纸：按图纸大小选比例"));
    m_paper->addItems({QStringLiteral("A3"), QStringLiteral("A4")});
    m_paper->setToolTip(QStringLiteral("导出的图纸"));

    auto* menu = new QMenu(this);
    const std::pair<const char*, const char*> kinds[] = {
        {"dxf", "DXF 图形（真坐标）…"}, {"svg", "SVG 图纸…"}, {"pdf", "PDF 图纸…"}, {"png", "PNG 图片…"}};
    for (const auto& [extension, caption2] : kinds) {
        auto* action = menu->addAction(QString::fromUtf8(caption2));
        action->setObjectName(QString::fromUtf8(extension));
        on(action, &QAction::triggered, [this, e = QString::fromUtf8(extension)] { ask(e); });
    }
    on(m_export, &XPButton::Click,
       [this, menu] { menu->popup(m_export->mapToGlobal(QPoint(0, -menu->sizeHint().height()))); });
    on(m_back, &XPButton::Click, [this] { unload(); });
}

QLayout* ViewForm::endRow()
{
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::kGrid);
    for (const auto& [text, box] : {std::pair{QStringLiteral("比例"), m_scale}, {QStringLiteral("图纸"), m_paper}}) {
        auto* label = new QLabel(text, this);
        label->setBuddy(box);
        row->addWidget(label);
        row->addWidget(box);
    }
    row->addStretch(1);
    row->addLayout(ui::buttonRow({m_export, m_back}));
    return row;
}

void ViewForm::Form_Load()
{
    reload();
    // The drawing has the keys that the window speaks of.
    findChild<DrawingArea*>()->setFocus();
}

void ViewForm::reload()
{
    m_road = std::make_unique<plot::Road>(*m_source.tables);
    m_slopes = plot::slopesOf(m_source.folder, *m_source.tables);
    m_stale = look();
}

plot::Stale ViewForm::look()
{
    const auto [groups, text] = plot::doubtsOf(*m_source.tables);
    m_notice->setText(fromUtf8(text));
    m_notice->setVisible(!text.empty());
    return groups;
}

void ViewForm::changeEvent(QEvent* event)
{
    Form::changeEvent(event);
    // Files may have been changed while another window had the focus.
    if (event->type() != QEvent::ActivationChange || !isActiveWindow() || !isVisible()) return;
    runHandler([this] {
        const auto now = look();
        if (now == m_stale) return;
        m_stale = now;
        showStale();
    });
}

plot::Order ViewForm::order() const
{
    plot::Order order = plot::orderOf(*m_road, m_kind);
    order.project = m_source.project;
    order.stale = m_stale;
    order.paper = m_paper->currentIndex() == 0 ? plot::kA3 : plot::kA4;
    if (const int index = m_scale->currentIndex(); index > 0) order.scale = kScales[index - 1];
    return order;
}

void ViewForm::ask(const QString& extension)
{
    const QString path = askPath(extension);
    if (path.isEmpty()) return;
    if (exportTo(path)) say(QStringLiteral("已导出：") + QDir::toNativeSeparators(path));
}

bool ViewForm::exportTo(const QString& path)
{
    const plot::Order what = order();
    if (const std::string why = plot::refusalOf(*m_road, what); !why.empty()) {
        dialogs().box(Notice(why));
        return false;
    }
    const QString extension = QFileInfo(path).suffix().toLower();
    if (extension == u"dxf") return writeOrSay(path, plot::dxfOf(*m_road, what, m_slopes));
    const auto sheets = plot::sheetsOf(*m_road, what, m_slopes);
    if (extension == u"pdf") return writeOrSay(path, pdfOf(sheets, windowTitle()).toStdString());
    // A file a sheet: 图.svg, or 图-1.svg, 图-2.svg where there are several.
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        QString name = path;
        if (sheets.size() > 1) {
            const auto most = QString::number(sheets.size()).size();
            name.insert(path.size() - extension.size() - 1,
                        QStringLiteral("-%1").arg(i + 1, static_cast<int>(most), 10, QLatin1Char('0')));
        }
        std::string bytes;
        if (extension == u"png") {
            QByteArray png;
            QBuffer buffer(&png);
            buffer.open(QIODevice::WriteOnly);
            imageOf(sheets[i], 200).save(&buffer, "PNG");
            bytes = png.toStdString();
        } else {
            bytes = plot::svgOf(sheets[i]);
        }
        if (!writeOrSay(name, bytes)) return false;
    }
    return true;
}
