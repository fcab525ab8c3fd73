// The document of the test of the detection and quantitation limits, key LIMI, files *.LIM.
#pragma once

#include "framework/document/ColumnDocument.h"
#include "validation/limits/LimiCalc.h"

#include <optional>

/// Option: 0 shows the detection limit, 1 the quantitation limit; nothing after a file whose flag is neither.
/// The choice changes field, caption and conclusions, and calculates nothing.
class LimiDocument final : public ColumnDocument
{
    Q_OBJECT

public:
    explicit LimiDocument(const DocumentContext& context);

    std::vector<NamedValue> Values() const override;

protected:
    void ResetOwn() override;
    void ForgetNumbers() override { m_results.reset(); }
    void ShowOption() override;
    void OptionChosen() override;
    CalcEnd CalcTest() override;
    void ReadOwnLine(QLatin1StringView control, const QString& text) override;
    QString WriteOwnLine(QLatin1StringView control) const override;
    void ReadBody(DataFileReader& reader, int fieldCount) override;

private:
    std::optional<LimiResults> m_results;
};
