#pragma once

#include <cstddef>
#include <string>
#include <string_view>

class CArchive;

// Fixed text fields of catalogue files: short texts stored as runs of UTF-16LE units, sized by
// the field's capacity n (4 for a label prefix, 10 for a price-list code).

// At most n - 1 characters, then a 0 unit: a text of n characters loses its last one.
void WriteFixedTextField(CArchive& archive, std::u16string_view text, std::size_t capacity);

// Units up to and including the first 0 unit, at most n + 1 of them; the text is at most n
// characters. Without a 0 unit in n + 1 units: CQvxException "Načítaný řetězec není ukončen nulou".
std::u16string ReadTerminatedTextField(CArchive& archive, std::size_t capacity);

// The form of older files: exactly n + 1 units whatever they hold. The text is what lies before
// the first 0 unit, cut to the n characters a buffer of the field holds.
std::u16string ReadFixedFormTextField(CArchive& archive, std::size_t capacity);
