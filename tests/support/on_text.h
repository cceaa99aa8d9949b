// Tests that read infile on a text that stands in the test.
#pragma once

#include <string>
#include <utility>

#include "support/fresh_run.h"

class OnText : public FreshRun
{
protected:
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
