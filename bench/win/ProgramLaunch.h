#pragma once

// What the Windows measuring programs share: a clock, medians, the program's folder values, and
// starting a program until its first dialog is visible.

#include <windows.h>

#include <string>
#include <vector>

// Seconds on the performance counter.
double Now();

// The middle of the figures (the lower middle of an even count); 0 for none.
double Median(std::vector<double> figures);

// Points the program's four folder values (machine hive, read first) at `folder`, where the
// program then reads "Velmora\Potrubi.qxp" and "Velmora\Potrubi_std.qxp".
void SetCatalogueFolders(const std::wstring& folder);

// Copies a whole file; false when it could not.
bool CopyWholeFile(const std::wstring& from, const std::wstring& to);

// Seconds from starting a process until its first dialog is visible, and until that dialog has
// answered a sent message (its thread has come to a message loop); below 0 when none showed.
struct StartTimes {
    double visible = -1;
    double answering = -1;
};

// Starts `commandLine`, waits for its dialog (20 seconds at most), then ends the process.
StartTimes TimeStart(const std::wstring& commandLine);
