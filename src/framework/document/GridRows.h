// The rows of a grid in a data file.
#pragma once

class DataFileReader;
class DataFileWriter;
class DataGrid;

/// All rows of the grid, of so many fields each: the first one, the row's number, is dropped, the others go
/// to the columns in order; what has no column is dropped too. Fails as the reader does, and with Overflow.
void ReadRows(DataFileReader& reader, DataGrid& grid, int fieldCount);

/// Each value as its cell shows it, with this count of decimals.
void WriteRows(DataFileWriter& writer, const DataGrid& grid, int decimals);
