#pragma once

#include <cstdint>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "Framework/CArchive.h"
#include "Framework/CFile.h"

using Bytes = std::vector<std::uint8_t>;

// Bytes written as hexadecimal pairs separated by blanks, as in a dump: "03 FF".
inline Bytes Hex(std::string_view text) {
    Bytes bytes;
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] == ' ' || text[i] == '\n') {
            ++i;
            continue;
        }
        if (i + 1 >= text.size()) throw std::invalid_argument("odd hex digit");
        bytes.push_back(static_cast<std::uint8_t>(std::stoul(std::string(text.substr(i, 2)), nullptr, 16)));
        i += 2;
    }
    return bytes;
}

// The bytes that `write` stores through an archive.
template <typename Write>
Bytes StoredBytes(Write&& write) {
    CMemFile file;
    CArchive archive(file, CArchive::store);
    write(archive);
    archive.Close();
    return file.Bytes();
}

// Runs `read` on an archive loading `bytes`; returns how many bytes it left unread.
template <typename Read>
std::uint64_t LoadBytes(const Bytes& bytes, Read&& read) {
    CMemFile file(bytes);
    CArchive archive(file, CArchive::load);
    read(archive);
    return archive.BytesLeft();
}
