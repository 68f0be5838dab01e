// Random events in every editor's window against a second, plain formulation of the rules.

#include "base/Lines.h"
#include "base/Numbers.h"
#include "editors/EditorWindow.h"
#include "editors/windows/frmCg.h"
#include "editors/windows/frmCgkd.h"
#include "editors/windows/frmDl.h"
#include "editors/windows/frmDxd.h"
#include "editors/windows/frmJdpqx.h"
#include "editors/windows/frmJmpqx.h"
#include "editors/windows/frmSqx.h"
#include "editors/windows/frmTfy.h"
#include "editors/windows/frmTfz.h"
#include "editors/windows/frmWfy.h"
#include "editors/windows/frmWfz.h"
#include "engine/Element.h"
#include "support/QtTests.h"

#include <cstdlib>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <set>

namespace {

/// What one editor does, typed from its description; columns by number.
struct Kind {
    const char* name;
    std::function<std::unique_ptr<EditorForm>()> make;
    int last;
    std::set<int> adds, returns;  ///< columns that must be filled above the last row, above the clicked row
    std::set<int> numbers;        ///< columns that take no letter
    std::set<std::pair<int, int>> copies;
    bool blanks = false, enter = true, blocks = false;
    std::string file = {}, bytes = {};  ///< what it opens with every other time: words of bytes that no code page knows
};

/// Rows as plain lists: texts, and the bytes that the file gave for a text that does not say them all.
struct Rows {
    struct Kept {
        std::string shown, bytes;
        bool operator==(const Kept&) const = default;
    };
    std::vector<std::vector<std::string>> cells = {};  // cells[0] stands for the header, all filled
    std::vector<std::map<int, Kept>> kept = {};        // row for row
    bool operator==(const Rows&) const = default;
};

/// The state of an editor's window as the rules tell it. Undo and redo put whole lists of rows back.
struct Model : Rows {
    explicit Model(const Kind& of) : kind(of) {}
    const Kind& kind;
    int row = 1, col = 1, curRow = 0, curCol = 0;
    std::string box = {};
    bool shown = false, edited = false, started = false, left = false;
    bool boxHasFocus = false, allSelected = false;
    void (Model::*button)() = nullptr;  // what the button that has the focus does

    struct Done {
        Rows before, after;
        int row, col;
        int visit;  // of the box to the cell that was typed into; -1: something else was done
    };
    std::vector<Done> history = {};
    std::size_t now = 0;
    int visit = 0;
    bool together = false;
    std::optional<Done> pending = {};  // of what is done together

    std::string& cell(int r, int c) { return cells[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)]; }
    int rows() const { return static_cast<int>(cells.size()); }
    std::vector<std::string> blank() const { return std::vector<std::string>(static_cast<std::size_t>(kind.last) + 1); }

    const Rows& rowLists() const { return *this; }
    /// @param typed  a cell's text, which is where the undo goes even if a row came first
    template <class Change>
    void change(int r, int c, bool typed, Change does)
    {
        const Rows before = rowLists();
        does();
        if (before == rowLists()) return;
        if (together) {
            if (!pending) pending = Done{before, {}, r, c, typed ? 0 : -1};
            if (typed && pending->visit < 0) pending->row = r, pending->col = c, pending->visit = 0;
            return;
        }
        record({before, rowLists(), r, c, typed ? visit : -1});
    }
    void record(Done step)
    {
        history.resize(now);
        if (now > 0 && step.visit >= 0 && history.back().visit == step.visit) {
            history.back().after = step.after;
            if (history.back().after == history.back().before) history.pop_back(), --now;
            return;
        }
        history.push_back(std::move(step));
        ++now;
    }
    template <class Steps>
    void asOne(Steps steps)
    {
        const bool outer = !together;
        together = true;
        steps();
        if (!outer) return;
        together = false;
        if (!pending) return;
        record({pending->before, rowLists(), pending->row, pending->col, -1});
        pending.reset();
    }
    void addRow()
    {
        change(rows(), 1, false, [&] { cells.push_back(blank()), kept.emplace_back(); });
    }
    void undo()
    {
        leave();
        if (now == 0) return keyWithoutMeaning();
        const Done& step = history[--now];
        putBack(step.before, step);
    }
    void redo()
    {
        leave();
        if (now == history.size()) return keyWithoutMeaning();
        const Done& step = history[now++];
        putBack(step.after, step);
    }
    void keyWithoutMeaning()
    {
        if (kind.enter) commit();
    }
    void putBack(const Rows& lists, const Done& step)
    {
        static_cast<Rows&>(*this) = lists;
        row = std::min(step.row, rows() - 1), col = step.col;
        curRow = row, curCol = col;
        ++visit;
        edited = true;
        setBox(cell(row, col));
        shown = boxHasFocus = allSelected = true;
        button = nullptr;
    }
    /// Of the rows, without the frames around them.
    std::string bytes() const
    {
        std::string all;
        for (std::size_t r = 1; r < cells.size(); ++r) {
            if (cells[r][static_cast<std::size_t>(kind.last) - 1].empty()) continue;
            for (int c = 1; c <= kind.last; ++c) {
                const std::string& text = cells[r][static_cast<std::size_t>(c)];
                const auto given = kept[r].find(c);
                all += c > 1 ? "," : "";
                all += given != kept[r].end() && given->second.shown == text ? given->second.bytes : text;
            }
            all += "\r\n";
        }
        return all;
    }

    void setBox(const std::string& text)
    {
        edited = edited || text != box;
        box = text;
    }
    void commit()
    {
        if (curRow < 1 || curRow >= rows()) return;
        const std::string text(Trim(box));
        if (!text.empty() || kind.blanks) change(curRow, curCol, true, [&] { cell(curRow, curCol) = text; });
    }
    bool full(int r, const std::set<int>& columns)
    {
        return r == 0 || std::none_of(columns.begin(), columns.end(), [&](int c) { return cell(r, c).empty(); });
    }
    void place(int r)
    {
        curRow = r, curCol = col;
        ++visit;
        setBox(cell(r, col));
        shown = boxHasFocus = allSelected = true;
        button = nullptr;
    }
    void click()
    {
        place(row);
        if (!left) return;
        asOne([&] {
            if (row == rows() - 1 && full(rows() - 2, kind.adds)) {
                addRow();
                fill(row, row - 1);
            } else if (!full(row - 1, kind.returns)) {
                place(row - 1);
                fill(row - 1, row - 1);
            }
        });
    }
    /// @param r the row filled in; @param block of the block editor: the row whose end is computed
    void fill(int r, int block)
    {
        if (kind.copies.empty() || r < 2 || !cell(r, 1).empty()) return;
        for (const auto& [from, to] : kind.copies)
            change(r, to, true, [&, from = from, to = to] { cell(r, to) = cell(r - 1, from); });
        if (kind.blocks && full(block, kind.adds)) {
            const auto n = [&](int c) { return std::strtod(cell(block, c).c_str(), nullptr); };
            const ElementPoint end = ForwardElement(n(2) - n(1), n(6), n(7), n(5), n(3), n(4));
            const std::pair<int, double> results[] = {{3, end.x}, {4, end.y}, {5, end.fwj}};
            for (const auto& [c, value] : results)
                change(block + 1, c, true, [&, c = c, value = value] { cell(block + 1, c) = NumText(value); });
        }
        setBox(cell(curRow, curCol));
        allSelected = true;
    }

    /// A character on the grid opens the box where it is seen, else in the grid's cell, if the column takes it.
    void open(char typed)
    {
        const bool seen = shown && curRow >= 1 && curRow < rows();
        const int r = seen ? curRow : row, c = seen ? curCol : col;
        if (kind.numbers.count(c) && !std::isdigit(typed)) return;
        curRow = r, curCol = c;
        ++visit;
        setBox(cell(r, c));
        shown = boxHasFocus = allSelected = true;
    }

    // Events

    void mouse(int r, int c, bool leftButton)
    {
        leave();
        left = leftButton;
        if (!leftButton) return;
        row = r, col = c;
        click();
    }
    void drag()
    {
        leave();
        left = true;
    }
    void character(char typed)
    {
        if (kind.enter) commit();
        if (!boxHasFocus && !button) open(typed);
        if (!boxHasFocus || (kind.numbers.count(curCol) && !std::isdigit(typed))) return;
        setBox(allSelected ? std::string(1, typed) : box + typed);
        allSelected = false;
    }
    void enterKey()
    {
        if (button) (this->*button)();  // a button clicks first
        if (!kind.enter) return;
        commit();
        asOne([&] {
            if (!started) col = 1, click(), started = true;
            if (col < kind.last) {
                ++col;
            } else {
                if (row + 1 >= rows()) addRow();
                ++row, col = 1;
            }
            click();
        });
        commit();
    }
    void deleteKey()
    {
        if (boxHasFocus && allSelected) setBox(""), allSelected = false;
    }
    void leave()
    {
        if (boxHasFocus) commit();
        boxHasFocus = false;
        button = nullptr;
    }
    void insert()
    {
        leave();
        button = &Model::insert;
        change(row, col, false, [&] {
            cells.insert(cells.begin() + row, blank());
            kept.insert(kept.begin() + row, 1, {});
        });
        setBox("");
        allSelected = false;
    }
    void remove()
    {
        leave();
        button = &Model::remove;
        if (rows() <= 2) return;
        change(row, col, false, [&] {
            cells.erase(cells.begin() + row);
            kept.erase(kept.begin() + row);
        });
        row = std::min(row, rows() - 1);
        setBox(cell(row, col));
        allSelected = false;
    }

    QString state() const
    {
        return QStringLiteral("%1,%2 cur %3,%4 rows %5 %6%7 ")
                   .arg(row)
                   .arg(col)
                   .arg(curRow)
                   .arg(curCol)
                   .arg(rows())
                   .arg(QChar(edited ? u'E' : u'-'))
                   .arg(QChar(started ? u'S' : u'-')) +
               (shown ? QStringLiteral("[%1]") : QStringLiteral("(%1)")).arg(QString::fromStdString(box));
    }
    QString text() const
    {
        QStringList lines;
        for (std::size_t r = 1; r < cells.size(); ++r) {
            QStringList line;
            for (std::size_t c = 1; c < cells[r].size(); ++c) line << QString::fromStdString(cells[r][c]);
            lines << line.join(u',');
        }
        return lines.join(u'/');
    }
};

template <class F>
std::unique_ptr<EditorForm> make()
{
    return std::make_unique<F>();
}

std::set<int> to(int last)
{
    std::set<int> all;
    for (int c = 1; c <= last; ++c) all.insert(c);
    return all;
}

const std::set<std::pair<int, int>> kOneGrade{{4, 1}, {5, 2}, {6, 3}};
const std::vector<Kind> kKinds{
    {"Jdpqx",
     make<frmJdpqx>,
     6,
     to(6),
     to(6),
     {2, 3, 4, 5, 6},
     {},
     false,
     true,
     false,
     "平曲线参数.txt",
     "0,1,2\r\n\xFF\xE4,1,2,3,4,5\r\n\xFE\xE4,6,7,8,9,1\r\nA,6,7,8,9,1\r\n90,91\r\n"},
    {"Jmpqx", make<frmJmpqx>, 7, to(7), to(7), to(7), {{2, 1}, {7, 6}}, false, false, true},
    {"Sqx", make<frmSqx>, 3, to(3), to(3), to(3), {}},
    {"Cg", make<frmCg>, 6, to(6), to(6), to(6), {{4, 1}, {5, 2}, {6, 3}}},
    {"Cgkd",
     make<frmCgkd>,
     12,
     {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12},
     to(12),
     to(12),
     {{2, 1}, {8, 4}, {9, 5}, {10, 6}, {11, 7}}},
    {"Dxd",
     make<frmDxd>,
     4,
     to(3),
     to(3),
     {2, 3},
     {},
     true,
     true,
     false,
     "导线点参数.txt",
     "\xFF\xE4,1,2,\xFE\xE4\r\nB,3,4,\xFF\xF5\r\nC,5,6,\r\n"},
    {"Dl", make<frmDl>, 2, to(2), to(2), to(2), {}, true},
    {"Tfz", make<frmTfz>, 6, to(6), to(6), to(6), kOneGrade},
    {"Tfy", make<frmTfy>, 6, to(6), to(6), to(6), kOneGrade},
    {"Wfz", make<frmWfz>, 6, to(6), to(6), to(6), kOneGrade},
    {"Wfy", make<frmWfy>, 6, to(6), to(6), to(6), kOneGrade},
};

}  // namespace

class tst_EditorModel : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QGuiApplication::setQuitOnLastWindowClosed(false); }

    void randomEvents_data()
    {
        QTest::addColumn<int>("kind");
        for (int i = 0; i < std::ssize(kKinds); ++i) QTest::newRow(kKinds[static_cast<std::size_t>(i)].name) << i;
    }

    void randomEvents()
    {
        QFETCH(int, kind);
        const Kind& editor = kKinds[static_cast<std::size_t>(kind)];
        const unsigned seeds = editor.file.empty() ? 6 : 16;  // a deleted row must come back while it has its bytes
        for (unsigned seed = 1; seed <= seeds; ++seed) run(editor, seed);
    }

private:
    /// What the file holds: the texts as they are shown, the bytes as they stand in it.
    static void take(Model& model, const EditorWindow& w)
    {
        const auto rows = static_cast<std::size_t>(w.grid.Rows());
        model.cells.assign(rows, model.blank());
        model.kept.assign(rows, {});
        const auto lines = SplitLines(model.kind.bytes);
        const std::size_t first = w.form.table().frames.empty() ? 0 : 1;
        for (std::size_t r = 1; r < rows; ++r) {
            const auto fields = SplitFields(lines[first + r - 1]);
            for (int c = 1; c <= model.kind.last; ++c) {
                const std::string& bytes = fields[static_cast<std::size_t>(c) - 1];
                const std::string shown = w.cell(static_cast<int>(r), c).toStdString();
                model.cells[r][static_cast<std::size_t>(c)] = shown;
                if (bytes != shown) model.kept[r][c] = {shown, bytes};
            }
        }
    }

    /// The rows of the file that a save would write now.
    static std::string bytes(const EditorForm& form, const MSFlexGrid& grid)
    {
        const std::vector<std::string> frames(form.table().frameBoxes().size());
        const std::string all = EditorBytes(form.table(), grid.text(), frames);
        if (frames.empty()) return all;
        const std::size_t first = all.find('\n') + 1, last = all.rfind('\n', all.size() - 2) + 1;
        return all.substr(first, last - first);
    }

    static void run(const Kind& kind, unsigned seed)
    {
        ScriptedDialogs dialogs;
        const ScriptedPlatform seams;
        const ProjectFolder folder{{"其他参数.txt", "交点法\r\n线性\r\n1\r\n1\r\n0\r\n"}};
        const bool loaded = seed % 2 == 0 && !kind.file.empty();
        if (loaded) folder.writeBytes(kind.file, kind.bytes);
        const auto form = kind.make();
        form->resize(1200, 700);
        const EditorWindow w(*form);
        w.grid.setFocus();
        Model model(kind);
        model.cells.assign(2, model.blank());
        model.kept.resize(2);
        if (loaded) take(model, w);
        gGridLeftDown = model.left = seed % 2 == 1;

        std::mt19937 random(seed);
        const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
        QStringList done;
        for (int step = 0; step < 250; ++step) {
            const int chance = model.rows() > 12 ? 99 : below(100);
            if (chance < 22) {
                const int r = 1 + below(model.rows() - 1), c = 1 + below(kind.last);
                const bool leftButton = below(4) > 0;
                done << QStringLiteral("%1 click %2,%3").arg(leftButton ? "left" : "right").arg(r).arg(c);
                w.click(r, c, leftButton ? Qt::LeftButton : Qt::RightButton);
                model.mouse(r, c, leftButton);
            } else if (chance < 25) {
                const int r = 1 + below(model.rows() - 1);
                done << QStringLiteral("number %1").arg(r);
                w.clickNumber(r);
                model.mouse(r, 1, true);
            } else if (chance < 28) {
                const int r = 1 + below(model.rows() - 1);
                done << QStringLiteral("drag from %1").arg(r);
                w.press(r, 1);
                w.release(r, 2);
                model.drag();
            } else if (chance < 55) {
                const char typed = "0123456789x"[below(11)];
                done << QString(QLatin1Char(typed));
                w.type(std::string(1, typed).c_str());
                model.character(typed);
            } else if (chance < 77) {
                done << QStringLiteral("Enter");
                w.enter();
                model.enterKey();
            } else if (chance < 81) {
                done << QStringLiteral("Delete");
                w.key(Qt::Key_Delete);
                model.deleteKey();
            } else if (chance < 91) {
                const bool back = below(5) > 1;
                done << (back ? QStringLiteral("undo") : QStringLiteral("redo"));
                w.grid.setFocus();  // not in the box, which would take its own typing back
                w.key(back ? Qt::Key_Z : Qt::Key_Y, Qt::ControlModifier);
                if (back)
                    model.undo();
                else
                    model.redo();
            } else if (chance < 93) {
                done << QStringLiteral("leave");
                w.grid.setFocus();
                model.leave();
            } else if (chance < 96 && form->table().hasInsert) {
                done << QStringLiteral("insert");
                w.push("Insert");
                model.insert();
            } else {
                done << QStringLiteral("delete row");
                w.push("Del");
                model.remove();
            }
            const bool plain = form->table().fields == 0;  // no padding behind the columns
            if (w.state() != model.state() || w.cells() != model.text() ||
                (plain && bytes(*form, w.grid) != model.bytes()))
                QFAIL(qPrintable(QStringLiteral("seed %1 after %2: %3 %4 instead of %5 %6")
                                     .arg(seed)
                                     .arg(done.join(u"; "), w.state(), w.cells(), model.state(), model.text())));
        }
        form->unload();
    }
};

VM_QT_TEST(tst_EditorModel)
#include "tst_EditorModel.moc"
