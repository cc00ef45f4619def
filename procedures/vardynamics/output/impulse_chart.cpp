#include <string>
#include <vector>

#include "procedures/common/number_text.h"
#include "procedures/vardynamics/output/charts.h"
#include "procedures/vardynamics/output/impulse_style.h"
#include "procedures/vardynamics/output/table_parts.h"

namespace vardynamics {
namespace {

// The points of all small charts, one after another.
class ResponsePanel {
 public:
  ResponsePanel(const ReportContext& context, const ShockResponses& set) : context_(context), set_(set) {}

  DocumentChart chart() const {
    const Texts& texts = context_.texts;
    DocumentChart chart{.id = shockTypeId(set_.type) + " Responses Chart",
                        .title = responsesTitle(texts, set_.type, context_.settings.impulse->unit)};
    chart.texts = {{"response", responses()}, {"shock", shocks()}, {"horizon", horizons()}};
    chart.numbers = {{"y", values(set_.values)}};
    chart.statements = {"PANEL: rows(response), columns(shock)", "SCALE: cat(dim(1), sort.data())",
                        "GUIDE: line(dim(2), at(0))", axisGuide(2, texts.localize("Response")),
                        axisGuide(1, texts.localize("Horizon"))};
    addBands(chart);
    chart.statements.push_back("ELEMENT: line(position(horizon*y), color(color.blue), label(\"" +
                               texts.localize("Response") + "\"))");
    return chart;
  }

 private:
  template <typename Visit>
  void forEachPoint(Visit visit) const {
    for (std::size_t i = 0; i < context_.names().size(); ++i) {
      for (const std::size_t shock : set_.shown) {
        for (std::size_t h = 0; h <= set_.horizon(); ++h) visit(i, shock, h);
      }
    }
  }

  std::vector<double> values(const engine::Responses& of) const {
    std::vector<double> column;
    forEachPoint([&](std::size_t i, std::size_t shock, std::size_t h) { column.push_back(of[h](i, shock)); });
    return column;
  }

  template <typename TextOf>
  std::vector<std::string> texts(TextOf textOf) const {
    std::vector<std::string> column;
    forEachPoint([&](std::size_t i, std::size_t shock, std::size_t h) { column.push_back(textOf(i, shock, h)); });
    return column;
  }

  std::vector<std::string> responses() const {
    return texts([this](std::size_t i, std::size_t, std::size_t) {
      return context_.texts.localize("Response of ^1", {responseName(context_, i)});
    });
  }

  std::vector<std::string> shocks() const {
    return texts([this](std::size_t, std::size_t shock, std::size_t) {
      return context_.texts.localize("Shock to ^1", {shockName(context_, set_.type, shock)});
    });
  }

  std::vector<std::string> horizons() const {
    return texts([](std::size_t, std::size_t, std::size_t h) { return std::to_string(h); });
  }

  void addBands(DocumentChart& chart) const {
    int number = 0;
    for (const engine::Band& band : set_.bands) {
      const std::string low = "low" + std::to_string(++number);
      const std::string high = "high" + std::to_string(number);
      chart.numbers.emplace_back(low, values(band.lower));
      chart.numbers.emplace_back(high, values(band.upper));
      chart.statements.push_back(bandElement("horizon", low, high, procedures::confidenceLevelText(band.level)));
    }
  }

  const ReportContext& context_;
  const ShockResponses& set_;
};

}  // namespace

DocumentChart responseChart(const ReportContext& context, const ShockResponses& set) {
  return ResponsePanel(context, set).chart();
}

}  // namespace vardynamics
