#include "Csv.h"

#include <algorithm>

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsLineEnd(char c) {
    return c == '\n' || c == '\r';
}

// The first ';' or ',' of the first line, outside quotes.
char DetectSeparator(std::string_view text) {
    bool quoted = false;
    for (char c : text) {
        if (c == '"') quoted = !quoted;
        if (quoted) continue;
        if (c == ';' || c == ',') return c;
        if (IsLineEnd(c)) break;
    }
    return ';';
}

class CsvScanner {
public:
    CsvScanner(std::string_view text, char separator) : text_(text), separator_(separator) {}

    void Run(CsvDocument& document) {
        while (pos_ < text_.size()) {
            CsvRecord record;
            record.line = line_;
            if (!ReadRecord(record, document)) return;
            document.records.push_back(std::move(record));
        }
    }

private:
    // Reads fields up to the end of a line (consumed). False on a syntax error.
    bool ReadRecord(CsvRecord& record, CsvDocument& document) {
        while (true) {
            std::string field;
            if (pos_ < text_.size() && text_[pos_] == '"') {
                if (!ReadQuoted(field, record.line, document)) return false;
            } else {
                while (pos_ < text_.size() && text_[pos_] != separator_ && !IsLineEnd(text_[pos_])) {
                    field.push_back(text_[pos_++]);
                }
            }
            record.fields.push_back(std::move(field));
            if (pos_ >= text_.size()) return true;
            if (text_[pos_] == separator_) {
                ++pos_;
                continue;
            }
            SkipLineEnd();
            return true;
        }
    }

    bool ReadQuoted(std::string& field, std::size_t startLine, CsvDocument& document) {
        ++pos_;  // opening quote
        while (true) {
            if (pos_ >= text_.size()) {
                document.error = CsvSyntaxError{startLine, "Uvozovky otevřené na tomto řádku nejsou uzavřeny."};
                return false;
            }
            const char c = text_[pos_];
            if (c == '"') {
                if (pos_ + 1 < text_.size() && text_[pos_ + 1] == '"') {
                    field.push_back('"');
                    pos_ += 2;
                    continue;
                }
                ++pos_;  // closing quote
                if (pos_ < text_.size() && text_[pos_] != separator_ && !IsLineEnd(text_[pos_])) {
                    document.error =
                        CsvSyntaxError{line_, "Za uzavírací uvozovkou smí být jen oddělovač nebo konec řádku."};
                    return false;
                }
                return true;
            }
            if (IsLineEnd(c)) {
                // A line break inside quotes belongs to the field; CRLF is kept as LF.
                SkipLineEnd();
                field.push_back('\n');
                continue;
            }
            field.push_back(c);
            ++pos_;
        }
    }

    void SkipLineEnd() {
        if (text_[pos_] == '\r' && pos_ + 1 < text_.size() && text_[pos_ + 1] == '\n') ++pos_;
        ++pos_;
        ++line_;
    }

    std::string_view text_;
    char separator_;
    std::size_t pos_ = 0;
    std::size_t line_ = 1;
};

bool NeedsQuotes(std::string_view field, char separator) {
    if (field.empty()) return false;
    if (field.front() == ' ' || field.back() == ' ') return true;  // spreadsheets trim bare blanks
    return field.find_first_of(std::string{separator, '"', '\r', '\n'}) != std::string_view::npos;
}

}  // namespace

bool CsvRecord::IsBlank() const {
    return std::all_of(fields.begin(), fields.end(), [](const std::string& field) { return field.empty(); });
}

CsvDocument ParseCsv(std::string_view text) {
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    CsvDocument document;
    document.separator = DetectSeparator(text);
    CsvScanner(text, document.separator).Run(document);
    return document;
}

std::string FormatCsv(const std::vector<std::vector<std::string>>& rows, char separator) {
    std::string out(kByteOrderMark);
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0) out.push_back(separator);
            const std::string& field = row[i];
            if (!NeedsQuotes(field, separator)) {
                out += field;
                continue;
            }
            out.push_back('"');
            for (char c : field) {
                if (c == '"') out.push_back('"');
                out.push_back(c);
            }
            out.push_back('"');
        }
        out.push_back('\n');
    }
    return out;
}
