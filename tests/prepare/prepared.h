// Decks prepared inside the test's own process.
#pragma once

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "prepare/prepare.h"
#include "support/convert.h"

// Of what prepare writes for the deck; the summary and the changes where they are asked for.
inline std::string prepared(const std::string& path, prepare::Summary* summary = nullptr,
                            const prepare::ChangeReport& report = {}, bool origins = false)
{
    std::ostringstream stream;
    const prepare::Summary found = prepare::Preparation(path).write(stream, {origins}, report);
    if (summary != nullptr) *summary = found;
    return stream.str();
}

// A deck of one text, prepared in a folder of its own.
inline std::string prepared_text(const std::string& deck, prepare::Summary* summary = nullptr)
{
    const TemporaryFolder folder;
    write_file("model.k", deck);
    return prepared("model.k", summary);
}
