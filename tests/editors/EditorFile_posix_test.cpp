// A save that is killed, in a process of its own.

#include "editors/EditorFile.h"

#include "editors/EditorText.h"
#include "support/KillAtRandomPoints.h"
#include "support/ProjectFolder.h"

#include <gtest/gtest.h>

namespace {

using Row = std::vector<std::string>;
using Rows = std::vector<Row>;

Row frames(const EditorTable& t) { return Row(t.frameBoxes().size(), "7"); }

struct EditorSave : testing::TestWithParam<EditorTable> {};

TEST_P(EditorSave, KilledWhileSaving)
{
    const EditorTable& t = GetParam();
    const ProjectFolder folder;
    const GridText before = gridOf(t, Rows(30, fullRow(t, "11")));
    const GridText after = gridOf(t, Rows(40, fullRow(t, "222")));
    killAtRandomPoints(folder.path(std::string(t.file)),
                       {EditorBytes(t, before, frames(t)), EditorBytes(t, after, frames(t))}, [&] {
                           SaveEditor(t, before, frames(t));
                           SaveEditor(t, after, frames(t));
                       });
}

INSTANTIATE_TEST_SUITE_P(, EditorSave,
                         testing::Values(JdpqxTable(), JmpqxTable(), SqxTable(), CgTable(), CgkdTable(), DxdTable(),
                                         DlTable(), SlopeTable(kTfz, 5), SlopeTable(kTfy, 5), SlopeTable(kWfz, 10),
                                         SlopeTable(kWfy, 10)),
                         [](const auto& editor) { return "frm" + std::string(editor.param.stem); });

}  // namespace
