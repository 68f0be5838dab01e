#pragma once
// The ways to the three views: by function, by F6 to F8.

#include <QObject>

#include <optional>

/// The views over the form that calls. A result grid of that form is shown in the plan.
/// @param stake  continuous, where to begin
void openPlan(QWidget* caller);
void openProfile(QWidget* caller, std::optional<double> stake = {});
void openSection(QWidget* caller, std::optional<double> stake = {});

/// F6 plan, F7 profile, F8 cross-section, in any form, once a project has been opened.
class ViewKeys : public QObject {
    Q_OBJECT
public:
    explicit ViewKeys(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
