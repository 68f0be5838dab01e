#include "project/LoadProject.h"

#include "base/FileBytes.h"
#include "base/ReplaceFile.h"
#include "base/TextFile.h"
#include "dialogs/Dialogs.h"
#include "dialogs/Messages.h"
#include "engine/Chainage.h"
#include "project/Backups.h"
#include "project/OpenRoad.h"
#include "project/Workspace.h"
#include "tables/CalcTables.h"

#include <chrono>
#include <thread>
#include <utility>

namespace {

std::function<void()> beginOfHang;

void cleanFiles(Loaded& met)
{
    for (const auto file : {files::settings, files::horizontal, files::traverse, files::breaks, files::vertical,
                            files::superelevation, files::widths}) {
        met.attemptFile([&] {
            const auto path = ParameterFile(file);
            if (!FileExists(path)) return;
            RemoveBlankLines(path, [&](const auto& bytes) {
                if (!keepReplaced(file, bytes)) met.notKept.push_back(openRoad.notKept);
            });
        });
    }
}

void upgradeSettings(Loaded& met)
{
    met.attemptFile([] {
        const auto path = ParameterFile(files::settings);
        const auto bytes = ReadBytesCreating(path);
        if (const auto grown = withFifthSetting(bytes); grown != bytes) WriteBytes(path, grown);
    });
}

}  // namespace

Loaded loadOpenProject()
{
    Loaded met;
    cleanFiles(met);
    upgradeSettings(met);
    OpenRoad::Files asRead;
    const auto read = [&asRead](std::string_view file) {
        return asRead[std::string(file)] = ReadBytesCreating(ParameterFile(file));
    };
    met = loadTables(read, shared.tables, shared.results, std::move(met));
    openRoad.remember(met, std::move(asRead));
    if (met.cutAtGap) dialogs().box(Notice(kStakeInGap));
    return met;
}

Loaded LoadProject()
{
    auto met = loadOpenProject();
    if (!met.neverEnds) return met;
    if (beginOfHang) beginOfHang();
    while (true) {
        dialogs().turnWithInput();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

void WhenLoadHangs(std::function<void()> begin) { beginOfHang = std::move(begin); }
