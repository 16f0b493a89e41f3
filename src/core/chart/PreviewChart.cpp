#include "PreviewChart.h"

#include "core/qt/Latin1.h"

#include "sim/PreviewReport.h"

#include <QtCharts/QAreaSeries>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>
#include <QtCharts/QLegend>
#include <QtCharts/QLegendMarker>
#include <QtCharts/QLineSeries>
#include <QtCharts/QScatterSeries>
#include <QtCharts/QValueAxis>

#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace korval {

namespace {

using sim::PreviewMarkKind;

const QColor MotorColours[] = {QColor(30, 90, 180), QColor(200, 110, 20), QColor(40, 150, 70),
                               QColor(150, 50, 150)};

struct Band {
    PreviewMarkKind kind;
    QColor colour;
};

const Band Bands[] = {
    {PreviewMarkKind::Pause, QColor(120, 120, 120, 60)},
    {PreviewMarkKind::WaitRunButton, QColor(220, 170, 0, 70)},
    {PreviewMarkKind::WaitInput1, QColor(0, 170, 200, 70)},
};

void attach(QChart& chart, QAbstractSeries* series, QValueAxis* x, QValueAxis* y) {
    chart.addSeries(series);
    series->attachAxis(x);
    series->attachAxis(y);
}

// The marks of one kind as one series: a band from the lower switch to the upper one for each.
QAreaSeries* bandsOf(const sim::PreviewResult& r, const Band& band, double low, double high) {
    auto* upper = new QLineSeries();
    auto* lower = new QLineSeries();
    for (const auto& m : r.marks) {
        if (m.kind == band.kind) {
            upper->append({{m.start, low}, {m.start, high}, {m.end, high}, {m.end, low}});
        }
    }
    if (upper->count() == 0) {
        delete upper;
        delete lower;
        return nullptr;
    }
    lower->append({{0, low}, {std::max(r.traced, 0.001), low}});
    auto* area = new QAreaSeries(upper, lower);
    upper->setParent(area); // the area does not own its two edges: they go with it
    lower->setParent(area);
    area->setName(Latin1(sim::MarkName(band.kind)));
    area->setColor(band.colour);
    area->setBorderColor(band.colour);
    return area;
}

} // namespace

QChart* MakePreviewChart(const sim::PreviewResult& r) {
    auto* chart = new QChart();
    chart->legend()->setAlignment(Qt::AlignBottom);
    auto* x = new QValueAxis();
    x->setTitleText("Seconds");
    x->setLabelFormat("%.1f");
    auto* y = new QValueAxis();
    y->setTitleText("Steps from the starting place");
    y->setLabelFormat("%d");
    chart->addAxis(x, Qt::AlignBottom);
    chart->addAxis(y, Qt::AlignLeft);
    const double travel = static_cast<double>(r.travel);
    const double end = std::max(r.traced, 0.001);
    x->setRange(0, end);
    y->setRange(-1.1 * travel, 1.1 * travel);
    x->applyNiceNumbers();

    for (const auto& band : Bands) {
        if (auto* area = bandsOf(r, band, -travel, travel)) {
            attach(*chart, area, x, y);
        }
    }
    for (const double side : {-travel, travel}) {
        auto* line = new QLineSeries();
        line->append({{0, side}, {x->max(), side}});
        line->setPen(QPen(QColor(190, 40, 40), 1.5, Qt::DashLine));
        line->setName("Limit switches");
        attach(*chart, line, x, y);
        if (side > 0) {
            chart->legend()->markers(line).front()->setVisible(false); // one entry for both
        }
    }
    for (const auto& trace : r.traces) {
        auto* line = new QLineSeries();
        line->setName(QString("Motor %1").arg(trace.axis));
        for (const auto& p : trace.points) {
            line->append(p.seconds, static_cast<double>(p.position));
        }
        line->setPen(QPen(MotorColours[(trace.axis - 1) & 3], 2));
        attach(*chart, line, x, y);
    }
    auto* reached = new QScatterSeries();
    reached->setName(Latin1(sim::MarkName(PreviewMarkKind::LimitSwitch) + " reached"));
    reached->setMarkerSize(9);
    reached->setColor(QColor(190, 40, 40));
    for (const auto& m : r.marks) {
        if (m.kind == PreviewMarkKind::LimitSwitch) {
            reached->append(m.start, static_cast<double>(m.position));
        }
    }
    if (reached->count() > 0) {
        attach(*chart, reached, x, y);
    } else {
        delete reached;
    }
    return chart;
}

bool SavePreviewPicture(const sim::PreviewResult& result, const std::vector<std::string>& summary,
                        const std::string& path) {
    QWidget page;
    page.setAttribute(Qt::WA_DontShowOnScreen);
    auto* layout = new QVBoxLayout(&page);
    auto* view = new QChartView(MakePreviewChart(result), &page);
    view->setRenderHint(QPainter::Antialiasing);
    QStringList lines;
    for (const auto& line : summary) {
        lines << Latin1(line);
    }
    auto* words = new QLabel(lines.join('\n'), &page);
    layout->addWidget(view, 1);
    layout->addWidget(words);
    page.resize(900, 520);
    page.show();
    return page.grab().save(QString::fromLocal8Bit(path.c_str()), "PNG");
}

} // namespace korval
