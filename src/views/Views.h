#pragma once
// The ways to the three views: by function, by F6 to F8.

#include <QObject>

#include <optional>
#include <string>

/// Something has been opened that a view can show.
bool canBeSeen();

/// The views over the form that calls. A result grid of that form is shown in the plan.
/// @param stake  continuous, where to begin
void openPlan(QWidget* caller);
void openProfile(QWidget* caller, std::optional<double> stake = {});
void openSection(QWidget* caller, std::optional<double> stake = {});

/// The views of a project that need not be open: its road is read into tables of its own. What cannot be is said.
/// @param project  of the catalogue, UTF-8
void lookAtPlan(QWidget* caller, const std::string& project);
void lookAtProfile(QWidget* caller, const std::string& project);
void lookAtSection(QWidget* caller, const std::string& project);

/// F6 plan, F7 profile, F8 cross-section, in any form, once a project has been opened.
class ViewKeys : public QObject {
    Q_OBJECT
public:
    explicit ViewKeys(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
