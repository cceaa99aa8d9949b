// Prepare: the same model, written so that the converter reads all of it.
//
//     prepare::Preparation preparation("model.k");   // looks the deck through; throws when it cannot be prepared
//     preparation.write(stream, {});
#pragma once

#include <filesystem>
#include <iosfwd>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "check/finding.h"
#include "prepare/output.h"
#include "prepare/survey.h"

namespace prepare
{

struct Options {
    bool origins = false;  // "$ from FILE:LINE" before each keyword line
};

struct Summary {
    std::size_t changes = 0;
    std::map<std::string, std::size_t, std::less<>> changes_by_code;
    // What could not be carried into strict form: the first of a code in a block, and how many more are in it.
    std::vector<std::pair<check::Finding, std::size_t>> not_carried;
};

class Preparation
{
public:
    // Throws deck::Fault when the deck cannot be read, or with the first of the problems that stop it; `problems` has
    // got all of them then.
    explicit Preparation(std::filesystem::path deck, std::vector<deck::Problem>* problems = nullptr);

    // Every file that is read.
    [[nodiscard]] const std::vector<deck::SourceFile>& files() const { return survey_.files; }

    // Warnings, and errors that do not stop it.
    [[nodiscard]] const std::vector<deck::Problem>& problems() const { return survey_.problems; }

    // Writes the deck. Throws deck::Fault when a field has no value, or a transformation cannot be done: what has been
    // written by then is to be thrown away.
    Summary write(std::ostream& stream, const Options& options, const ChangeReport& report = {}) const;

private:
    std::filesystem::path deck_;
    Survey survey_;
};

}  // namespace prepare
