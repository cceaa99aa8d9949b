// What an observer of the run is told.
#include "reader/observer.h"

#include <gtest/gtest.h>

#include <string>

#include "bulk/bulk.h"
#include "loading/loading.h"
#include "materials/materials.h"
#include "reader/pass.h"
#include "support/fresh_run.h"

namespace
{
// Writes down all that it is told, a word each.
class Record : public Observer
{
public:
    std::string told;

    void reads_deck(bool deck) override { told += deck ? "deck " : "copy "; }
    void pass_begins(const Pass& pass) override { told += "[" + std::string(pass.name) + "] "; }
    void keyword_line(Position begin) override { told += std::string(cbuffer) + "@" + std::to_string(begin) + " "; }
    void row_begins(const PassRow* row) override
    {
        told += row == nullptr ? "none " : "<" + std::string(row->action.procedure) + " ";
    }
    void row_ends() override { told += "> "; }
    void field(const FieldRead& field) override
    {
        told += std::to_string(field.begin) + "+" + std::to_string(field.width) + "'" + std::string(field.characters) +
                (field.empty ? "'- " : "'=") +
                (field.empty ? "" : (field.number ? std::to_string(static_cast<int>(field.value)) : "text") + " ");
    }
    void text_read(Position begin, Position end) override
    {
        told += std::to_string(begin) + ".." + std::to_string(end) + " ";
    }
};

class Watching : public FreshRun
{
protected:
    Watching() { observer = &record; }
    ~Watching() override { observer = nullptr; }

    Record record;
};
}  // namespace

TEST_F(Watching, PassTellsItsKeywordsRowsAndFields)
{
    convert(section_keywords, "*NODE\n*SECTION_SOLID\n$\n         7         1\n*END\n");
    EXPECT_EQ(record.told, "[element sections] *NODE@0 none *SECTION_SOLID@6 <sectionsolid "
                           "23+10'         7'=text 33+10'         1'=1 43+10''- > *END@44 < ");
}

TEST_F(Watching, FieldThatTheLineCutsIsTold)
{
    convert(section_keywords, "*SECTION_SPH\n   7\n*END\n");
    EXPECT_EQ(record.told.substr(0, record.told.find("17+")),
              "[element sections] *SECTION_SPH@0 <sectionsph 13+10'   7'- ");
}

TEST_F(Watching, TitleIsToldWithoutItsNewline)
{
    convert(section_keywords, "*SECTION_SOLID_TITLE\nsteel\n         7\n*END\n");
    EXPECT_NE(record.told.find("<sectionsolid 21..26 27+10'         7'=text "), std::string::npos) << record.told;
}

TEST_F(Watching, LongTitleIsToldWhole)
{
    convert(section_keywords, "*SECTION_SOLID_TITLE\n" + std::string(200, 'x') + "\n         7\n*END\n");
    EXPECT_NE(record.told.find("<sectionsolid 21..221 222+10"), std::string::npos) << record.told;
}

TEST_F(Watching, HeadingBehindAnIdentifierIsToldApart)
{
    contflag = 2;
    convert(contact_keywords, "*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE\n         1 glue\n*END\n");
    EXPECT_NE(record.told.find("<surfcon2tnodes 38+10'         1'=1 48..53 "), std::string::npos) << record.told;
}

TEST_F(Watching, FieldsOfBulkCardsAreToldLikeOthers)
{
    convert(sph_element_keywords, "*ELEMENT_SPH\n$\n       7      12             2.5\n       8 1\n*END\n");
    EXPECT_EQ(record.told,
              "[particles] *ELEMENT_SPH@0 <esph 15+8'       7'=7 23+8'      12'=12 31+16'             2.5'=2 "
              "48+8'       8'=8 56+8' 1'- 58+16''- > *END@59 < ");
}

TEST_F(Watching, MembersOfSetsAreToldToTheirEighthField)
{
    convert(set_keywords, "*SET_PART\n         1\n         7\n*END\n");
    EXPECT_NE(record.told.find("21+10'         7'=7 31+10''- 31+10''- "), std::string::npos) << record.told;
}

TEST_F(Watching, FieldsThatAreOnlyLoggedAreToldToo)
{
    convert(shell_keywords, "*ELEMENT_SHELL\n       1       2       3       4       5       6       7       8\n*END\n");
    EXPECT_NE(record.told.find("55+8'       6'=6 63+8'       7'=7 71+8'       8'=8 79+8''- 79+8''- > "),
              std::string::npos)
        << record.told;
}
