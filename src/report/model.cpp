#include "report/model.h"

namespace report
{

void ModelVisitor::node(std::int64_t /*id*/, const std::array<double, 3>& /*at*/)
{
}
void ModelVisitor::element(const Element& /*element*/)
{
}
void ModelVisitor::set_begins(SetKind /*kind*/, std::int64_t /*id*/, const std::string& /*title*/)
{
}
void ModelVisitor::set_member(const std::array<std::int64_t, 4>& /*member*/)
{
}
void ModelVisitor::part(const PartCount& /*part*/)
{
}

}  // namespace report
