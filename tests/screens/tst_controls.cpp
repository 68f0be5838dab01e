// Every control of every calculation window: its given name, kind, caption, state at the start and keys; every column.

#include "FormDriver.h"

#include "screens/windows/frmDgdGc.h"
#include "screens/windows/frmDgdZb.h"
#include "screens/windows/frmFs.h"
#include "screens/windows/frmJgw.h"
#include "screens/windows/frmPl.h"
#include "screens/windows/frmPlGc.h"
#include "screens/windows/frmPlfy.h"
#include "screens/windows/frmZdcs.h"
#include "support/QtTests.h"

#include <QLabel>
#include <QRadioButton>

#include <functional>
#include <memory>

namespace {

enum Kind { Box, Locked, Sides, Station, Check, Option, Selected, Button, Grid, Wait };
enum Keys { Any, Unsigned, Signed };

struct ControlRow {
    const char* name;
    Kind kind;
    const char* caption;  ///< of the control, or of the label before it; "" for none
    Keys keys = Any;
};

struct ColumnRow {
    const char* header;
    int twips;
};

struct FormRow {
    const char* name;
    const char* caption;
    std::function<std::unique_ptr<QDialog>()> make;
    std::vector<ControlRow> controls;
    std::vector<ColumnRow> columns;
};

const std::vector<ColumnRow> kCoordinates = {{"序号", 800},   {"里 程", 2000},  {"中边桩", 1800},
                                             {"夹 角", 1900}, {"方位角", 1900}, {"距 离", 1200},
                                             {"X坐标", 1500}, {"Y坐标", 1500},  {"切线方位角", 1900}};

std::vector<ColumnRow> mainPoints()
{
    std::vector<ColumnRow> columns = {{"序  号", 1000},     {"交点编号", 1500},   {"第一切线长", 1500},
                                      {"第二切线长", 1500}, {"第一缓曲长", 1500}, {"第二缓曲长", 1500}};
    static const char* const rest[] = {
        "ZH点里程", "ZH点X坐标", "ZH点Y坐标", "ZH点切线方位角", "HY点里程", "HY点X坐标", "HY点Y坐标", "HY点切线方位角",
        "YH点里程", "YH点X坐标", "YH点Y坐标", "YH点切线方位角", "HZ点里程", "HZ点X坐标", "HZ点Y坐标", "HZ点切线方位角"};
    for (const char* header : rest)
        columns.push_back({header, QString::fromUtf8(header).endsWith(QStringLiteral("角")) ? 2000 : 1500});
    return columns;
}

template <class Form>
std::unique_ptr<QDialog> made()
{
    return std::make_unique<Form>();
}

/// frmPl stands over a frmJgw that lives as long.
std::unique_ptr<frmJgw> under;
std::unique_ptr<QDialog> madePl()
{
    under = std::make_unique<frmJgw>();
    return std::make_unique<frmPl>(*under);
}

const char* const kWaiting = "正在保存中，请耐心等待";

std::vector<FormRow> forms()
{
    return {
        {"frmDgdZb",
         "计算单个点坐标",
         made<frmDgdZb>,
         {{"txtDgdZbFylc", Box, "计算里程", Signed},
          {"comDgdZbz", Sides, ""},
          {"txtDgdPj", Locked, "偏距", Unsigned},
          {"cheDgdJj", Check, "夹角"},
          {"txtDgdJj", Locked, "", Signed},
          {"comDgdCz", Station, "测站点"},
          {"cheDgdZb", Check, "输入坐标"},
          {"txtDgdCzX", Locked, "X", Unsigned},
          {"txtDgdCzY", Locked, "Y", Unsigned},
          {"butDgdCalc", Button, "计 算"},
          {"butDgdDel", Button, "删除一行"},
          {"butDgdSave", Button, "保 存"},
          {"butDgdBack", Button, "返 回"},
          {"MsfgDgdzb", Grid, ""},
          {"txtWait", Wait, kWaiting}},
         kCoordinates},
        {"frmPlfy",
         "批量放样",
         made<frmPlfy>,
         {{"txtPlzbQdlc", Box, "开始里程", Signed},
          {"txtPlzbZdlc", Box, "结束里程", Signed},
          {"txtPlzbBc", Box, "间距", Unsigned},
          {"txtPlzbPj", Box, "偏距", Unsigned},
          {"chePlzbJj", Check, "夹角"},
          {"txtPlzbJj", Locked, "", Signed},
          {"comPlzbCz", Station, "测站点"},
          {"chePlFyzb", Check, "输入坐标"},
          {"txtPlzbCzX", Locked, "X", Unsigned},
          {"txtPlzbCzY", Locked, "Y", Unsigned},
          {"butPlzbCalc", Button, "计 算"},
          {"bugPlfy", Button, "批量放样"},
          {"butPlzbDel", Button, "删除一行"},
          {"butPlzbSave", Button, "保 存"},
          {"butPlzbBack", Button, "返 回"},
          {"MsfgPlfyZb", Grid, ""},
          {"txtPlzbWait", Wait, kWaiting}},
         kCoordinates},
        {"frmFs",
         "坐标反算桩号",
         made<frmFs>,
         {{"txtFsx", Box, "X坐标", Signed},
          {"txtFsY", Box, "Y坐标", Signed},
          {"butFsCalc", Button, "计 算"},
          {"butPlfs", Button, "批量反算"},
          {"butFsDel", Button, "删除一行"},
          {"butFsSave", Button, "保 存"},
          {"butFsBack", Button, "返 回"},
          {"MsfgFs", Grid, ""},
          {"txtFsWait", Wait, kWaiting}},
         {{"序号", 800}, {"X 坐 标", 2000}, {"Y 坐 标", 2000}, {"反 算 里 程", 2000}, {"反 算 偏 距", 2000}}},
        {"frmDgdGc",
         "计算单个点高程",
         made<frmDgdGc>,
         {{"txtDgdGcFylc", Box, "计算里程", Signed},
          {"comDgdGcz", Sides, ""},
          {"txtDgdGcPj", Locked, "偏距", Unsigned},
          {"cheDgdLm", Check, "扣除路面厚度"},
          {"txtDgdLmhd", Locked, "", Signed},
          {"butDgdGcCalc", Button, "计 算"},
          {"butDgdGcDel", Button, "删除一行"},
          {"butDgdGcSave", Button, "保 存"},
          {"butDgdBack", Button, "返 回"},
          {"MsfgDgdGc", Grid, ""},
          {"txtGcWait", Wait, kWaiting}},
         {{"序号", 1000}, {"里 程", 2000}, {"中边桩", 2000}, {"高 程", 2000}}},
        {"frmPlGc",
         "批量计算高程",
         made<frmPlGc>,
         {{"txtPlGcQdlc", Box, "开始里程", Signed},
          {"txtPlGcZdlc", Box, "结束里程", Signed},
          {"txtPlGcPj", Box, "偏距", Unsigned},
          {"txtPlGcJj", Box, "间距", Unsigned},
          {"cheLm", Check, "扣除路面厚度"},
          {"txtLmhd", Locked, "", Signed},
          {"butPlGcCalc", Button, "计 算"},
          {"bugPlgc", Button, "批量计算"},
          {"butPlGcDel", Button, "删除一行"},
          {"butPlGcSave", Button, "保 存"},
          {"butPlBack", Button, "返 回"},
          {"MsfgPlGc", Grid, ""},
          {"txtPlGcWait", Wait, kWaiting}},
         {{"序号", 1000},
          {"里 程", 2000},
          {"中边桩", 1500},
          {"高 程", 1500},
          {"中边桩", 1500},
          {"高 程", 1500},
          {"中边桩", 1500},
          {"高 程", 1500}}},
        {"frmJgw",
         "结构物角点放样",
         made<frmJgw>,
         {{"txtJgwFylc", Box, "结构物中心里程", Signed},
          {"optJgwZz", Option, "斜交正做"},
          {"optJgwXz", Selected, "斜交斜做"},
          {"txtJgwKq", Box, "K前", Signed},
          {"txtJgwKh", Box, "K后", Signed},
          {"txtJgwZz", Box, "Z左", Signed},
          {"txtJgwZy", Box, "Z右", Signed},
          {"cheJgwJj", Check, "夹角"},
          {"txtJgwJj", Locked, "", Signed},
          {"comJgwCz", Station, "测站点"},
          {"cheJgw", Check, "输入坐标"},
          {"txtJgwCzX", Locked, "X", Unsigned},
          {"txtJgwCzY", Locked, "Y", Unsigned},
          {"butJgwCalc", Button, "计 算"},
          {"pljs", Button, "批量计算"},
          {"butTxt", Button, "从文件读取"},
          {"butJgwDel", Button, "删除一行"},
          {"butJgwSave", Button, "保 存"},
          {"butJgwBack", Button, "返 回"},
          {"MsfgJgw", Grid, ""},
          {"txtJgwWait", Wait, kWaiting}},
         {{"序号", 800},
          {"里 程", 2000},
          {"点位置", 1000},
          {"夹 角", 1900},
          {"方位角", 1900},
          {"距 离", 1200},
          {"X坐标", 1500},
          {"Y坐标", 1500},
          {"切线方位角", 1900}}},
        {"frmPl",
         "批量计算结构物",
         madePl,
         {{"txtQdlc", Box, "批量计算起点", Signed},
          {"txtZdlc", Box, "批量计算终点", Signed},
          {"txtBc", Box, "批量计算间距", Signed},
          {"butOK", Button, "确    定"},
          {"butCancel", Button, "取    消"}},
         {}},
        {"frmZdcs",
         "主点参数",
         made<frmZdcs>,
         {{"butZdSave", Button, "保   存"},
          {"butZdBack", Button, "返   回"},
          {"msfgZdcs", Grid, ""},
          {"txtPlzbWait", Wait, kWaiting}},
         mainPoints()},
    };
}

/// The text of the label whose buddy the control is.
QString labelOf(QWidget& form, QWidget* control)
{
    for (auto* label : form.findChildren<QLabel*>())
        if (label->buddy() == control) return label->text();
    return {};
}

QStringList itemsOf(const QWidget* list)
{
    QStringList items;
    const auto* combo = qobject_cast<const QComboBox*>(list);
    for (int i = 0; combo && i < combo->count(); ++i) items << combo->itemText(i);
    return items;
}

}  // namespace

class tst_controls : public QObject {
    Q_OBJECT
private slots:
    void initTestCase_data()
    {
        QTest::addColumn<int>("form");
        const auto all = forms();
        for (std::size_t i = 0; i < all.size(); ++i) QTest::newRow(all[i].name) << static_cast<int>(i);
    }

    void init()
    {
        m_machine = std::make_unique<Machine>();
        gDxdName = {"DX1", "DX2"};
        gDxdX = gDxdY = {0, 0};
        gDxdCount = 1;
        QFETCH_GLOBAL(int, form);
        m_row = forms()[static_cast<std::size_t>(form)];
        m_form = m_row.make();
        m_form->show();
    }
    void cleanup()
    {
        m_form.reset();
        under.reset();
        m_machine.reset();
    }

    void nameAndCaption()
    {
        QCOMPARE(m_form->objectName(), QString::fromUtf8(m_row.name));
        QCOMPARE(m_form->windowTitle(), QString::fromUtf8(m_row.caption));
    }

    void controls()
    {
        for (const auto& row : m_row.controls) {
            auto* control = m_form->findChild<QWidget*>(QString::fromUtf8(row.name));
            QVERIFY2(control, row.name);
            const QString caption = QString::fromUtf8(row.caption);
            auto* line = qobject_cast<QLineEdit*>(control);
            switch (row.kind) {
            case Box:
            case Locked:
                QVERIFY2(line, row.name);
                QCOMPARE(line->isReadOnly(), row.kind == Locked);
                QCOMPARE(line->palette().color(QPalette::Base) == QColor(Qt::white), row.kind == Box);
                QCOMPARE(line->text(), QString());
                if (!caption.isEmpty()) QCOMPARE(labelOf(*m_form, control), caption);
                break;
            case Sides:
                QCOMPARE(itemsOf(control), (QStringList{"中桩", "左边桩", "右边桩"}));
                QCOMPARE(qobject_cast<PickList*>(control)->Text(), QStringLiteral("中桩"));
                QCOMPARE(qobject_cast<PickList*>(control)->ListIndex(), -1);
                break;
            case Station:
                QCOMPARE(labelOf(*m_form, control), caption);
                QCOMPARE(itemsOf(control), (QStringList{"DX1", "DX2"}));
                QCOMPARE(qobject_cast<PickList*>(control)->Text(), QString());
                QCOMPARE(qobject_cast<PickList*>(control)->ListIndex(), -1);
                break;
            case Check:
                QCOMPARE(qobject_cast<QCheckBox*>(control)->text(), caption);
                QVERIFY(!qobject_cast<QCheckBox*>(control)->isChecked());
                break;
            case Option:
            case Selected:
                QCOMPARE(qobject_cast<QRadioButton*>(control)->text(), caption);
                QCOMPARE(qobject_cast<QRadioButton*>(control)->isChecked(), row.kind == Selected);
                break;
            case Button:
                QCOMPARE(qobject_cast<XPButton*>(control)->Caption(), caption);
                break;
            case Grid:
                QVERIFY2(qobject_cast<MSFlexGrid*>(control), row.name);
                break;
            case Wait:
                QCOMPARE(line->text(), caption);
                QVERIFY(!line->isVisible());
                break;
            }
        }
    }

    /// A key of the set enters the box, any other is swallowed; with Ctrl held anything passes.
    void keys()
    {
        for (const auto& row : m_row.controls) {
            if (row.keys == Any) continue;
            auto* line = m_form->findChild<QLineEdit*>(QString::fromUtf8(row.name));
            setLocked(line, false);
            QTest::keyClicks(line, QStringLiteral("0a1.2-,3 /4.5+6789e"));
            QCOMPARE(line->text(),
                     row.keys == Signed ? QStringLiteral("01.2-34.56789") : QStringLiteral("01.234.56789"));
            QTest::keyClick(line, Qt::Key_Backspace);
            QCOMPARE(line->text().right(1), QStringLiteral("8"));
            line->clear();
            platform().keyIsDown = [](int key) { return key == 17; };
            QTest::keyClicks(line, QStringLiteral("x"));
            QCOMPARE(line->text(), QStringLiteral("x"));
            platform().keyIsDown = [](int) { return false; };
        }
    }

    void columns()
    {
        auto* grid = m_form->findChild<MSFlexGrid*>();
        if (m_row.columns.empty()) {
            QVERIFY(!grid);
            return;
        }
        QCOMPARE(grid->Cols(), static_cast<int>(m_row.columns.size()));
        QCOMPARE(grid->Rows(), 1);
        for (int col = 0; col < grid->Cols(); ++col) {
            const auto& column = m_row.columns[static_cast<std::size_t>(col)];
            QCOMPARE(grid->TextMatrix(0, col), QString::fromUtf8(column.header));
            QCOMPARE(grid->ColWidth(col), column.twips);
        }
        grid->setRows(2);
        const auto* cells = grid->model();
        for (int col = 0; col < cells->columnCount(); ++col)
            QCOMPARE(cells->data(cells->index(0, col), Qt::TextAlignmentRole).toInt(),
                     static_cast<int>(Qt::AlignCenter));
    }

    /// With the keyboard alone: each open box can be reached by Tab, no button is a default button.
    void tabReachesEveryOpenBox()
    {
        QSet<QString> reached;
        m_form->activateWindow();
        QWidget* first = m_form->focusWidget();
        for (int i = 0; i < 60; ++i) {
            if (auto* widget = m_form->focusWidget()) reached.insert(widget->objectName());
            QTest::keyClick(m_form->focusWidget() ? m_form->focusWidget() : m_form.get(), Qt::Key_Tab);
        }
        Q_UNUSED(first)
        for (const auto& row : m_row.controls)
            if (row.kind == Box || row.kind == Button)
                QVERIFY2(reached.contains(QString::fromUtf8(row.name)), row.name);
    }

private:
    std::unique_ptr<Machine> m_machine;
    FormRow m_row;
    std::unique_ptr<QDialog> m_form;
};

VM_QT_TEST(tst_controls)
#include "tst_controls.moc"
