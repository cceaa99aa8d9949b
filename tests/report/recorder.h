// A visitor that keeps all it is told.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "report/model.h"

struct Recorder : report::ModelVisitor {
    struct Set {
        report::SetKind kind;
        std::int64_t id;
        std::string title;
        std::vector<std::array<std::int64_t, 4>> members;
    };

    void node(std::int64_t id, const std::array<double, 3>& at) override { nodes.emplace_back(id, at); }
    void element(const report::Element& element) override { elements.push_back(element); }
    void set_begins(report::SetKind kind, std::int64_t id, const std::string& title) override
    {
        sets.push_back({kind, id, title, {}});
    }
    void set_member(const std::array<std::int64_t, 4>& member) override { sets.back().members.push_back(member); }
    void part(const report::PartCount& part) override { parts.push_back(part); }

    std::vector<std::pair<std::int64_t, std::array<double, 3>>> nodes;
    std::vector<report::Element> elements;
    std::vector<Set> sets;
    std::vector<report::PartCount> parts;
};
