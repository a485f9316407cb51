#pragma once

#include <stdexcept>

// A failure the tool reports to the user and stops on; the text is Czech, UTF-8.
class ToolError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};
