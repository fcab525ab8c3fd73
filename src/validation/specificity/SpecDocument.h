// The document of the specificity test, key SPEC, files *.SPC.
#pragma once

#include "framework/document/TestDocument.h"
#include "validation/specificity/SpecCalc.h"

#include <optional>
#include <vector>

class SpecDocument final : public TestDocument
{
    Q_OBJECT

public:
    static constexpr QLatin1StringView kGruppoA{"GruppoA"};
    static constexpr QLatin1StringView kGruppoB{"GruppoB"};

    explicit SpecDocument(const DocumentContext& context);

    /// As many rows as the larger group has; the cells below the other group's size are empty and locked.
    void ResizeGrid() override;
    std::vector<NamedValue> Values() const override;
    /// Those of the last calculation that came to its end since the last reset.
    const std::optional<SpecResults>& Numbers() const { return m_results; }
    ChartData Chart(std::size_t index, Language language) const override;

protected:
    void ResetOwn() override;
    void ForgetNumbers() override;
    CalcEnd CalcTest() override;
    void CalcCharts() override;
    void ReadBody(DataFileReader& reader, int fieldCount) override;

private:
    /// A column's numbers as its cells show them, and whether none differs from the number of the cell above.
    struct Group {
        std::vector<double> values;
        bool allEqual = true;
    };
    Group ReadGroup(int col, int count) const;
    CalcEnd TellNoProbability(SpecEnd end);
    void ShowTexts(const SpecResults& results, const Group& a, const Group& b);
    void ShowResults(const SpecResults& results);

    std::optional<SpecResults> m_results;
    std::vector<std::vector<double>>
        m_bars; ///< a group each: upper limit, lower limit, mean, as they are shown
};
