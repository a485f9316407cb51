#pragma once

#include "Dialogs/CCheckedEdit.h"

// Counts the checked edits' refusal beeps instead of sounding them, for the life of a test.
class RefusalBeeps {
public:
    RefusalBeeps() : previous_(SetRefusalSound(Count)) { count_ = 0; }
    ~RefusalBeeps() { SetRefusalSound(previous_); }
    RefusalBeeps(const RefusalBeeps&) = delete;
    RefusalBeeps& operator=(const RefusalBeeps&) = delete;

    int Heard() const { return count_; }

private:
    static void Count() { ++count_; }
    static inline int count_ = 0;
    RefusalSound previous_;
};
