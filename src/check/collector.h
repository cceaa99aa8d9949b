// Where findings are collected.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "check/finding.h"

namespace check
{

// Keeps every finding, or the first of each code, severity and block with the number of the others.
class Collector
{
public:
    Collector(std::vector<Finding>& to, bool all) : to_(&to), all_(all) {}

    void add(Finding found);

    [[nodiscard]] bool keeps_all() const { return all_; }

private:
    std::vector<Finding>* to_;
    bool all_;
    std::unordered_map<std::string, std::size_t> kept_;  // the place of the one that is kept
};

}  // namespace check
