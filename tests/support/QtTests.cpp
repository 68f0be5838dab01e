#include "support/QtTests.h"

#include <QApplication>
#include <cstdio>
#include <map>
#include <string>

static std::map<std::string, QtTestRun>& all()
{
    static std::map<std::string, QtTestRun> tests;
    return tests;
}

bool addQtTest(const char* name, QtTestRun run) { return all().emplace(name, run).second; }

int main(int argc, char** argv)
{
    const auto found = argc > 1 ? all().find(argv[1]) : all().end();
    if (found == all().end()) {
        std::fprintf(stderr, "%s CLASS [option...]; the classes:\n", argv[0]);
        for (const auto& [name, run] : all()) std::fprintf(stderr, "  %s\n", name.c_str());
        return 2;
    }
    const QApplication app(argc, argv);
    argv[1] = argv[0];
    return found->second(argc - 1, argv + 1);
}
