#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Comma-separated text as spreadsheets write it: fields in double quotes may hold separators,
// quotes (doubled) and line breaks. The separator is ';' or ',', whichever the header row uses
// first (a Czech spreadsheet uses ';', as its decimal separator is the comma). Fields are UTF-8.

struct CsvRecord {
    std::size_t line = 0;  // line of the text on which the record starts, from 1
    std::vector<std::string> fields;

    bool IsBlank() const;  // every field empty: a spreadsheet's empty row
};

struct CsvSyntaxError {
    std::size_t line = 0;
    std::string message;  // Czech, for the user
};

struct CsvDocument {
    char separator = ';';
    std::vector<CsvRecord> records;
    std::optional<CsvSyntaxError> error;  // set when the text could not be split; records stop there
};

// Splits a text into records. A leading UTF-8 byte order mark is skipped; lines end with LF, CRLF
// or CR.
CsvDocument ParseCsv(std::string_view text);

// Writes rows with a UTF-8 byte order mark (so that spreadsheets recognise the encoding) and LF
// line ends, quoting a field only where it needs it.
std::string FormatCsv(const std::vector<std::vector<std::string>>& rows, char separator = ';');
