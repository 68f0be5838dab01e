#include "base/Numbers.h"

#include "base/ParameterFiles.h"
#include "base/RunTimeError.h"
#include "check/CheckRules.h"
#include "check/CheckSections.h"

#include <algorithm>

namespace {

const FileShape kFiles[] = {{.name = std::string(files::leftFill), .fields = 30, .loaded = false},
                            {.name = std::string(files::rightFill), .fields = 30, .loaded = false},
                            {.name = std::string(files::leftCut), .fields = 60, .loaded = false},
                            {.name = std::string(files::rightCut), .fields = 60, .loaded = false}};

/// Stakes that do not grow, within a row and from row to row. @param end  field of the end stake
void checkRow(const CheckedFile& file, std::size_t i, std::size_t end, Findings& findings)
{
    const auto row = file[i];
    CheckGrows(file.name, row.line, static_cast<int>(end) + 1, "变化终点里程不大于变化起点里程", row.number(0),
               row.number(end), findings);
    if (i > 0 && row.number(0) < file[i - 1].number(0))
        CheckGrows(file.name, row.line, 1, "变化起点里程没有增大", file[i - 1].number(0), row.number(0), findings);
}

}  // namespace

void CheckSlopes(const std::string& folder, const std::vector<std::string>& settings, CheckSteps& steps,
                 Findings& findings)
{
    for (const auto& shape : kFiles) {
        const auto file = ReadChecked(folder, shape, steps, findings);
        steps.once([file, &shape, &settings, &steps, &findings] {
            const std::size_t setting = shape.fields == 30 ? 2 : 3;
            double grades = 0;
            if (setting < settings.size()) attempt([&] { grades = ParseNumber(settings[setting]); });
            if (!(grades >= 1)) return;
            const auto end = static_cast<std::size_t>(std::min(3 * grades, shape.fields / 2.0));
            steps.rows(file->size(), [=, &findings](std::size_t i) { checkRow(*file, i, end, findings); });
        });
    }
}
