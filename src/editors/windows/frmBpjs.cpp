#include "editors/windows/frmBpjs.h"

#include "base/FileError.h"
#include "base/Numbers.h"
#include "controls/XPButton.h"
#include "dialogs/FileBox.h"
#include "editors/Wizard.h"
#include "ui/Layout.h"

#include <QFocusEvent>
#include <QLabel>

namespace {

constexpr int kEnter = 13, kBackspace = 8;

bool isFillGradeKey(int key) { return key == kBackspace || (key >= '1' && key <= '5'); }
bool isCutGradeKey(int key) { return key == kBackspace || (key >= '0' && key <= '9'); }

}  // namespace

frmBpjs::frmBpjs(QWidget* parent)
    : Form(QStringLiteral("frmBpjs"), QStringLiteral("最大边坡级数"), parent), txtTfJs(control<QLineEdit>("txtTfJs")),
      txtWfJs(control<QLineEdit>("txtWfJs")), txtXzcs(control<QLineEdit>("txtXzcs"))
{
    filterKeys(txtTfJs, isFillGradeKey, WhileCtrl::Filtered);
    filterKeys(txtWfJs, isCutGradeKey, WhileCtrl::Filtered);
    filterKeys(txtXzcs, IsUnsignedDecimalKey);

    auto* note =
        control<QLabel>("Label4", QStringLiteral("(对应图纸上>N米但<M米不设平台中的M，如>10米但是<12米时不设置平台则"
                                                 "输入12，没有则无需输入)"));
    ui::fitText(note, 376);

    auto* ok = control<XPButton>("cmdBpjsOk", QStringLiteral("确 定"));
    auto* cancel = control<XPButton>("cmdPdjsCancel", QStringLiteral("取 消"));
    on(ok, &XPButton::Click, [this] { cmdBpjsOk_Click(); });
    on(cancel, &XPButton::Click, [this] { unload(); });

    for (auto* box : {txtTfJs, txtWfJs, txtXzcs}) ui::fitDigits(box);
    ui::arrange(*this, {ui::fieldColumn({{QStringLiteral("填方最大边坡级数(1～5)"), txtTfJs},
                                         {QStringLiteral("挖方最大边坡级数(1～10)"), txtWfJs},
                                         {QStringLiteral("挖方边坡限制高度"), txtXzcs}}),
                        note, ui::buttonRow({ok, cancel})});
}

void frmBpjs::openAt(const TextPlace& place)
{
    QLineEdit* const boxes[] = {txtTfJs, txtWfJs, txtXzcs};
    if (place.file == files::settings && place.line >= 3 && place.line <= 5) boxes[place.line - 3]->setFocus();
}

void frmBpjs::Form_Load()
{
    SlopeSettings stored;
    try {
        stored = LoadSlopeSettings();
    } catch (const FileError& error) {
        dialogs().box(FileBox(error));
        return stayClosed();
    }
    txtTfJs->setText(fromUtf8(stored.fillGrades));
    txtWfJs->setText(fromUtf8(stored.cutGrades));
    txtXzcs->setText(fromUtf8(stored.heightLimit));
}

bool frmBpjs::Form_KeyPress(int keyAscii) { return keyAscii == kEnter && enterSendsTab(); }

bool frmBpjs::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut && isVisible()) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
            if (watched == txtTfJs) leave(txtTfJs, FillGradesTooMany(toUtf8(txtTfJs->text())));
            if (watched == txtWfJs) leave(txtWfJs, CutGradesTooMany(toUtf8(txtWfJs->text())));
        }
    }
    return Form::eventFilter(watched, event);
}

void frmBpjs::leave(QLineEdit* box, const std::optional<Msg>& tooMany)
{
    if (!tooMany) return;
    dialogs().box(*tooMany);
    box->clear();
    box->setFocus();
}

void frmBpjs::cmdBpjsOk_Click()
{
    const Outcome stored =
        StoreSlopeSettings({toUtf8(txtTfJs->text()), toUtf8(txtWfJs->text()), toUtf8(txtXzcs->text())});
    if (!stored) return refuse(*stored.refusal);
    unload();
}
