#include "screens/windows/frmZdcs.h"

#include "controls/FormScaling.h"
#include "screens/Zdcs.h"
#include "tables/CalcTables.h"
#include "ui/PinnedColumn.h"

using namespace Qt::StringLiterals;

frmZdcs::frmZdcs()
    : ScreenForm({.form = "frmZdcs",
                  .caption = u"主点参数"_s,
                  .grid = "msfgZdcs",
                  .save = "butZdSave",
                  .back = "butZdBack",
                  .wait = "txtPlzbWait",
                  .saveCaption = u"保   存"_s,
                  .backCaption = u"返   回"_s,
                  .columns = kMainPointColumns,
                  .layout = kZdcsExport})
{
    layOut({}, {});
}

void frmZdcs::Form_Load()
{
    ScreenForm::Form_Load();
    run([](RowSink& rows) {
        LoadZdcs(rows);
        return Outcome{};
    });
    new PinnedColumn(*grid);  // the curve's number
    fitToContent(*this, {0, sizeHint().height() - grid->sizeHint().height() + grid->heightForAllRows()});
}

ExportData frmZdcs::exportData()
{
    ExportData saved = ScreenForm::exportData();
    saved.rows = gZdCount;
    return saved;
}
