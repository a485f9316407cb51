#pragma once

// Lets a Windows console show the tool's UTF-8 output (Czech letters) as UTF-8.
void UseUtf8Console();
