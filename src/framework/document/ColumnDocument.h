// What the documents share whose grid is one column of results, as long as the field nDet says.
#pragma once

#include "framework/document/DocumentContext.h"
#include "framework/document/DocumentShape.h"
#include "framework/document/TestDocument.h"
#include "framework/files/DataFileReader.h"

#include <vector>

class ColumnDocument : public TestDocument
{
    Q_OBJECT

public:
    static constexpr QLatin1StringView kNDet{"nDet"};

    /// As many rows as nDet says, 0 in the empty ones.
    void ResizeGrid() override;

protected:
    ColumnDocument(const DocumentShape& shape, const DocumentContext& context);

    void ResetOwn() override;
    void ReadBody(DataFileReader& reader, int fieldCount) override;
    /// The numbers that the first nDet cells show. Fails with TypeMismatch for an empty one.
    std::vector<double> Results() const;
};
