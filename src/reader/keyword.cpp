#include "reader/keyword.h"

#include <algorithm>

#include "reader/observer.h"
#include "reader/run.h"

namespace
{
char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string_view keyword_line()
{
    return cbuffer;
}
}  // namespace

void keyword()
{
    infile.to_keyword();
    const std::string_view kept = infile.ahead(sizeof cbuffer - 1);
    *std::transform(kept.begin(), kept.end(), cbuffer, upper) = '\0';
    if (observer != nullptr) observer->keyword_line(infile.position());
    infile.skip_line();
}

char comments(char c)
{
    while (c == '$') {
        infile.skip_line();
        c = infile.next();
    }
    infile.back();
    return c;
}

char skip_comments()
{
    while (infile.peek() == '$') infile.skip_line();
    return infile.peek();
}

bool keyword_is(std::string_view prefix)
{
    return keyword_line().starts_with(prefix);
}

bool keyword_ends_in(std::string_view ending)
{
    return keyword_line().ends_with(ending);
}
