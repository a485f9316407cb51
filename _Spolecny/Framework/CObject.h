#pragma once

class CArchive;

// Base of the records that write and read themselves through an archive.
class CObject {
public:
    CObject() = default;
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
    virtual ~CObject() = default;

    virtual void Serialize(CArchive&) {}
};
