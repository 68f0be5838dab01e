#pragma once
// What the three views share: the line about the data, the read-out, the export of sheets and drawings.

#include "plot/Drawings.h"
#include "plot/ProjectPlot.h"
#include "project/Workspace.h"
#include "tables/CalcTables.h"
#include "ui/Form.h"

#include <QComboBox>
#include <QLabel>

#include <memory>

class QMenu;
class XPButton;

/// Where a view takes its road from.
struct ViewSource {
    const Tables* tables = &shared.tables;
    std::string project = gProject;
    std::string folder = gProjectFolder.empty() ? ProjectPath(gProject) : gProjectFolder;
    bool open() const { return tables == &shared.tables; }  ///< the open project, not another one that is looked at
};

class ViewForm : public Form {
    Q_OBJECT
public:
    /// Writes the drawing as the path's ending says: .dxf, .svg, .pdf, .png. What fails is said. False: not written.
    bool exportTo(const QString& path);

protected:
    ViewForm(const QString& name, const QString& caption, plot::Order::Kind kind, ViewSource source);

    void Form_Load() override;
    /// The road of the tables anew, after whatever may have changed them.
    virtual void reload();
    /// What is drawn beside the defaults of the road.
    virtual plot::Order order() const;
    /// What is stale() by now, in the drawing.
    virtual void showStale() = 0;
    void changeEvent(QEvent* event) override;

    const plot::Road& road() const { return *m_road; }
    const plot::Stale& stale() const { return m_stale; }
    const plot::SlopeFiles& slopes() const { return m_slopes; }
    void say(const QString& text) { m_readOut->setText(text); }
    const ViewSource& source() const { return m_source; }

    /// The row of scale, paper, export and back that every view ends with.
    QLayout* endRow();
    QLabel *m_notice, *m_readOut;

private:
    void ask(const QString& extension);
    /// Says in amber what is doubtful, and which groups that are.
    plot::Stale look();

    plot::Order::Kind m_kind;
    ViewSource m_source;
    std::unique_ptr<plot::Road> m_road;
    plot::Stale m_stale;
    plot::SlopeFiles m_slopes;
    QComboBox *m_scale, *m_paper;
    XPButton *m_export, *m_back;
};
