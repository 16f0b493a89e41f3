#include "PreviewPanel.h"

#include "HourGlass.h"
#include "core/chart/PreviewChart.h"
#include "core/qt/Latin1.h"

#include "core/Numbers.h"
#include "core/Text.h"
#include "sim/PreviewReport.h"

#include <QtCharts/QChart>
#include <QtCharts/QChartView>

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace korval {

namespace {

QLineEdit* box(const char* name, double value, const char* tip, QWidget* parent) {
    auto* edit = new QLineEdit(Latin1(NumToText(value)), parent);
    edit->setObjectName(name);
    edit->setToolTip(tip);
    edit->setMaximumWidth(80);
    return edit;
}

} // namespace

PreviewPanel::PreviewPanel(Run run, QWidget* parent) : QWidget(parent), run_(std::move(run)) {
    const sim::PreviewOptions defaults;
    travel_ = box("TxtPreviewTravel", static_cast<double>(defaults.travel),
                  "Steps from the starting place to each limit switch", this);
    operator_ = box("TxtPreviewOperator", defaults.operatorSeconds,
                    "Seconds the operator takes to press Run or switch Input 1 on", this);
    cycles_ = box("TxtPreviewCycles", defaults.cycles, "Cycles of the repeated part to show", this);
    button_ = new QPushButton("Preview", this);
    button_->setObjectName("CmdPreview");
    button_->setToolTip("Run the program on a virtual controller and show its motion");
    auto* row = new QHBoxLayout();
    row->addWidget(new QLabel("Travel to each limit:", this));
    row->addWidget(travel_);
    row->addWidget(new QLabel("Steps", this));
    row->addSpacing(12);
    row->addWidget(new QLabel("Operator answers after:", this));
    row->addWidget(operator_);
    row->addWidget(new QLabel("Seconds", this));
    row->addSpacing(12);
    row->addWidget(new QLabel("Show:", this));
    row->addWidget(cycles_);
    row->addWidget(new QLabel("Cycles", this));
    row->addStretch(1);
    row->addWidget(button_);

    view_ = new QChartView(this);
    view_->setObjectName("ChartPreview");
    view_->setRenderHint(QPainter::Antialiasing);
    view_->setMinimumSize(480, 260);
    summary_ = new QLabel(this);
    summary_->setObjectName("LblPreviewSummary");
    summary_->setWordWrap(true);
    summary_->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addWidget(view_, 1);
    layout->addWidget(summary_);
    connect(button_, &QPushButton::clicked, this, [this] { Refresh(); });
    for (auto* edit : {travel_, operator_, cycles_}) {
        connect(edit, &QLineEdit::returnPressed, this, [this] { Refresh(); });
    }
}

void PreviewPanel::Refresh() {
    auto options = sim::ReadPreviewOptions(Latin1(travel_->text()), Latin1(operator_->text()),
                                           Latin1(cycles_->text()));
    travel_->setText(Latin1(NumToText(static_cast<double>(options.travel))));
    operator_->setText(Latin1(NumToText(options.operatorSeconds)));
    cycles_->setText(QString::number(options.cycles));
    Shown shown;
    {
        HourGlass busy;
        shown = run_(options);
    }
    auto* old = view_->chart();
    view_->setChart(MakePreviewChart(shown.result));
    delete old;
    QStringList lines;
    for (const auto& line : sim::PreviewSummary(shown.result, options)) {
        lines << Latin1(line);
    }
    for (auto note : shown.notes) {
        ReplaceAll(note, "\r\n\r\n", " ");
        lines << Latin1(note);
    }
    summary_->setText(lines.join('\n'));
}

void ShowPreviewDialog(QWidget* parent, const QString& title, PreviewPanel::Run run) {
    QDialog dialog(parent);
    dialog.setWindowTitle(title);
    auto* layout = new QVBoxLayout(&dialog);
    auto* panel = new PreviewPanel(std::move(run), &dialog);
    layout->addWidget(panel);
    dialog.resize(860, 520);
    panel->Refresh();
    dialog.exec();
}

} // namespace korval
