#include "CQvxException.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// The full text ("message, Line n, \nsource" in Windows-1250) is checked wherever a failure's text
// is; here only its limit.
TEST(CQvxException, TextIsCutAt511Characters) {
    const std::string tail = ", Line 7, \nsrc";
    for (const std::size_t length : {511 - tail.size(), 512 - tail.size(), std::size_t{600}}) {
        SCOPED_TRACE(length);
        const CQvxException exception(std::u16string(length, u'a'), 7, u"src");
        EXPECT_EQ(std::string(exception.what()), (std::string(length, 'a') + tail).substr(0, 511));
    }
}

}  // namespace
