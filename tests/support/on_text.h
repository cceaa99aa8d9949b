// Tests that read infile on a text that stands in the test.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "reader/run.h"
#include "support/convert.h"

class OnText : public testing::Test
{
protected:
    void SetUp() override { reset_run(); }
    void TearDown() override { reset_run(); }

    void read(std::string text, std::size_t window = 64)
    {
        text_ = std::move(text);
        infile.open_text(text_, window);
    }

    // What the stream delivers next, consumed.
    static std::string following(std::size_t count)
    {
        std::string text;
        while (text.size() < count) text += infile.next();
        return text;
    }

private:
    std::string text_;
};
