#include "phone/Phone.h"

#include "base/Numbers.h"
#include "base/SignalsHeld.h"
#include "cli/Commands.h"
#include "cli/Culprit.h"
#include "project/Workspace.h"

#include <algorithm>
#include <ostream>

namespace {

/// Answers the question about overwriting; what is said otherwise goes the usual way.
class OverwriteDialogs final : public Dialogs {
public:
    OverwriteDialogs() { setDialogs(this); }
    ~OverwriteDialogs() override { setDialogs(&m_usual); }
    bool box(const Msg& msg) override { return msg.buttons == Msg::YesNo || m_usual.box(msg); }
    void turn() override { m_usual.turn(); }
    std::optional<std::string> openFile(std::string_view filter) override { return m_usual.openFile(filter); }
    std::optional<std::string> saveFile(std::string_view filter) override { return m_usual.saveFile(filter); }

private:
    Dialogs& m_usual = dialogs();
};

int run(const Call& call)
{
    const std::string name(Trim(call.args.value("--name")));
    const bool keys = std::all_of(name.begin(), name.end(), [](unsigned char c) { return IsPhoneNameKey(c); });
    if (name.empty() || !keys) {
        call.err << NamedValue(call, "--name") << (name.empty() ? "项目名称不能为空！" : "只能用英文字母和数字")
                 << '\n';
        return kRefused;
    }
    std::optional<OverwriteDialogs> overwriting;
    if (call.args.has("--overwrite")) overwriting.emplace();
    const SignalsHeld held;  // the list and the files of a project belong together
    const auto done = ExportForPhone(name);
    if (done == PhoneExport::Declined) call.err << "要覆盖时请加上 --overwrite\n";
    if (done == PhoneExport::Stopped || done == PhoneExport::Declined) return kRefused;
    call.out << PhoneProjectPath(name) << '\n';
    return kDone;
}

constexpr Way kWays[] = {"--name [--overwrite]"};
constexpr Option kOptions[] = {
    {"--name", "名称", "手机版项目名称，只用英文字母和数字"},
    {"--overwrite", "", "已有这个名称的手机版项目时覆盖它；不给时拒绝"},
};

}  // namespace

const Command kPhoneCommand{
    .name = "phone",
    .summary = "转换为手机版参数",
    .help = R"(把项目的十一个参数文件原样转换为 UTF-16，写到工作目录的 SJCS 下，并写入手机版项目列表。
结果是那个目录的路径，把它复制到手机即可。

例子：
  velumark-calc 示例一 phone --name road1
)",
    .ways = kWays,
    .options = kOptions,
    .loads = false,  // the files as they stand
    .forms = "",
    .run = run,
};
