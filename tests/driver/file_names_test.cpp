// The names of a run's files.
#include "driver/file_names.h"

#include <gtest/gtest.h>

#include <string>

#include "support/fresh_run.h"

namespace
{
using Names = FreshRun;
}  // namespace

TEST_F(Names, ExtensionOfOneToThreeCharactersIsCutBehindItsDot)
{
    EXPECT_EQ(base_name("model.k"), "model.");
    EXPECT_EQ(base_name("model.ke"), "model.");
    EXPECT_EQ(base_name("model.key"), "model.");
}

TEST_F(Names, NameWithoutSuchAnExtensionGetsADot)
{
    EXPECT_EQ(base_name("model"), "model.");
    EXPECT_EQ(base_name("model.keyw"), "model.keyw.");
    EXPECT_EQ(base_name("model."), "model..") << "the last character is never looked at";
}

TEST_F(Names, ShortestExtensionCountsFirst)
{
    EXPECT_EQ(base_name("a.b.c"), "a.b.");
    EXPECT_EQ(base_name("a.bc.d"), "a.bc.");
    EXPECT_EQ(base_name("a.b.cd"), "a.b.");
    EXPECT_EQ(base_name("a..k"), "a..");
}

TEST_F(Names, NothingIsLookedAtBeforeTheFirstCharacter)
{
    EXPECT_EQ(base_name(""), ".");
    EXPECT_EQ(base_name("k"), "k.");
    EXPECT_EQ(base_name("."), "..");
    EXPECT_EQ(base_name(".k"), ".");
    EXPECT_EQ(base_name(".key"), ".");
    EXPECT_EQ(base_name("ab"), "ab.");
    EXPECT_EQ(base_name("abc"), "abc.");
}

TEST_F(Names, FolderIsKept)
{
    EXPECT_EQ(base_name("decks/model.k"), "decks/model.");
    EXPECT_EQ(base_name("../xyz"), "../xyz.");
    EXPECT_EQ(base_name("../x"), "..") << "the rule knows no folders";
    EXPECT_EQ(base_name("v1.0/m"), "v1.");
}

TEST_F(Names, OutputsAreNamedAfterTheDeck)
{
    for (const char* deck : {"deck.k", "deck", "deck.key"}) {
        ASSERT_TRUE(set_file_names(deck));
        EXPECT_STREQ(file_names.deck, deck);
        EXPECT_STREQ(file_names.card, "deck.card");
        EXPECT_STREQ(file_names.geom, "deck.geom");
        EXPECT_STREQ(file_names.sets, "deck.sets");
    }
}

TEST_F(Names, NameOf79CharactersFitsAndIsNotCut)
{
    const std::string name(79, 'n');
    ASSERT_TRUE(set_file_names(name));
    EXPECT_EQ(file_names.deck, name);
    EXPECT_EQ(file_names.card, name + ".card");
    EXPECT_EQ(file_names.geom, name + ".geom");
    EXPECT_EQ(file_names.sets, name + ".sets");
}

TEST_F(Names, NameOf80CharactersIsRefused)
{
    EXPECT_FALSE(set_file_names(std::string(80, 'n')));
    EXPECT_FALSE(set_file_names(std::string(10000, 'n')));
}
