#pragma once
// The motion preview view: the travel to the switches, how long the operator takes and how many
// cycles to show, a button that runs the preview, the chart and what it means in words. The
// window that holds it says what to run.
#include "sim/PreviewBench.h"

#include <QWidget>

#include <functional>
#include <string>
#include <vector>

class QChartView;
class QLabel;
class QLineEdit;
class QPushButton;

namespace korval {

class PreviewPanel final : public QWidget {
    Q_OBJECT
public:
    struct Shown {
        sim::PreviewResult result;
        std::vector<std::string> notes; // "title: text" of each box the program's making showed
    };
    using Run = std::function<Shown(const sim::PreviewOptions&)>;

    explicit PreviewPanel(Run run, QWidget* parent = nullptr);

    // Reads the three boxes (tidying them), runs the preview and shows it.
    void Refresh();

    QChartView* Chart() const { return view_; }
    QLabel* Summary() const { return summary_; }
    QLineEdit* Travel() const { return travel_; }
    QLineEdit* Operator() const { return operator_; }
    QLineEdit* Cycles() const { return cycles_; }
    QPushButton* Button() const { return button_; }

private:
    Run run_;
    QLineEdit* travel_;
    QLineEdit* operator_;
    QLineEdit* cycles_;
    QPushButton* button_;
    QChartView* view_;
    QLabel* summary_;
};

// The preview of a text in a window of its own, over `parent` (the script editor's).
void ShowPreviewDialog(QWidget* parent, const QString& title, PreviewPanel::Run run);

} // namespace korval
