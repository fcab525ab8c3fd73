// The document of the repeatability test, key PREC, files *.PRE.
#pragma once

#include "framework/document/ColumnDocument.h"
#include "validation/repeatability/PrecCalc.h"

#include <optional>

class PrecDocument final : public ColumnDocument
{
    Q_OBJECT

public:
    explicit PrecDocument(const DocumentContext& context);

    std::vector<NamedValue> Values() const override;
    ChartData Chart(std::size_t index, Language language) const override;

protected:
    void ForgetNumbers() override;
    CalcEnd CalcTest() override;
    void CalcCharts() override;

private:
    void ShowResults(const PrecResults& results);

    std::optional<PrecResults> m_results;
    std::optional<PrecCurve> m_curve; ///< of the results; none where s is 0
};
