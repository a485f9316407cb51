#pragma once

#include <string>

// Failures of the file layer. They are not std::exceptions on purpose: the catch sites treat them
// apart from the program's own failures, and an archive failure passes the sites that report
// std::exceptions.
class CException {
public:
    virtual ~CException() = default;
};

// Opening, reading, writing or replacing a file failed.
class CFileException : public CException {
public:
    enum class Cause { Generic, FileNotFound, AccessDenied, DiskFull, SharingViolation };

    // `systemText`: the system's own description of the failure, for a cause without a text of ours.
    CFileException(Cause cause, std::u16string fileName, std::u16string systemText = {})
        : cause_(cause), fileName_(std::move(fileName)), systemText_(std::move(systemText)) {}

    Cause GetCause() const { return cause_; }
    const std::u16string& FileName() const { return fileName_; }
    const std::u16string& SystemText() const { return systemText_; }

private:
    Cause cause_;
    std::u16string fileName_;
    std::u16string systemText_;
};

// A catalogue stream ended early or is malformed.
class CArchiveException : public CException {
public:
    enum class Cause { EndOfFile, BadFormat };

    explicit CArchiveException(Cause cause, unsigned long long offset = 0) : cause_(cause), offset_(offset) {}

    Cause GetCause() const { return cause_; }
    // Byte position in the stream where the failure was noticed.
    unsigned long long Offset() const { return offset_; }

private:
    Cause cause_;
    unsigned long long offset_;
};
