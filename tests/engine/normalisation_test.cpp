#include "engine/normalisation.h"

#include <gtest/gtest.h>

namespace wordtally {
namespace {

TEST(EndingsTest, MatchAndReplaceIgnoreCaseUnlessAskedNotTo) {
  EXPECT_TRUE(EndsWith("CITIES", "ies", false));
  EXPECT_FALSE(EndsWith("CITIES", "ies", true));
  EXPECT_TRUE(EndsWith("es", "es", false));
  EXPECT_FALSE(EndsWith("s", "es", false));
  EXPECT_TRUE(EndsWith("\xC9T\xC9", "\xE9", false));  // ÉTÉ ends in é once lower-cased

  AnsiString word = "BOXES";
  EXPECT_TRUE(ReplaceEnding(word, "es", "e", false));
  EXPECT_EQ(word, "BOXe");
  EXPECT_FALSE(ReplaceEnding(word, "es", "e", false));
  EXPECT_EQ(word, "BOXe");
}

TEST(PluralTest, RulesInOrderWithAndWithoutSignificantCase) {
  const auto singular = [](AnsiString word, bool caseSensitive) {
    EnglishPluralToSingular(word, caseSensitive);
    return word;
  };
  for (const auto& [plural, expected] : std::initializer_list<std::pair<const char*, const char*>>{
           {"cities", "city"},   {"ties", "tie"},       {"series", "sery"},     {"wishes", "wish"},
           {"classes", "class"}, {"buzzes", "buzz"},    {"heroes", "hero"},     {"floes", "floe"},
           {"shoes", "shoe"},    {"horses", "horse"},   {"boxes", "boxe"},      {"trees", "tree"},
           {"gas", "ga"},        {"is", "is"},          {"us", "us"},           {"as", "as"},
           {"glass", "glass"},   {"bus", "bus"},        {"physics", "physics"}, {"analysis", "analysis"},
           {"rights", "rights"}, {"SPECIES", "SPECIES"}, {"mice", "mouse"},     {"lice", "louse"},
           {"Mice", "Mice"},     {"  cats ", "cat"},    {"plays", "play"},      {"bees", "bee"},
           {"goes", "go"},       {"days", "day"}}) {
    EXPECT_EQ(singular(plural, false), expected) << plural;
  }
  for (const auto& [plural, expected] : std::initializer_list<std::pair<const char*, const char*>>{
           {"Mice", "MOUSE"},   {"mice", "mouse"}, {"LICE", "LOUSE"}, {"CITIES", "CITY"},
           {"Cities", "City"},  {"HEROES", "HERO"}, {"shoes", "sho"}, {"FLOES", "FLOE"},
           {"HORSES", "HORSE"}, {"Trees", "Tree"}, {"Rights", "Rights"}}) {
    EXPECT_EQ(singular(plural, true), expected) << plural;
  }
}

TEST(CharacterClassTest, StemsVowelsCapitalsAndTrailingChars) {
  for (const char* stem : {"couldn", "n", "en", "ren", "ldn", "uldn", "COULDN", "wasn"}) {
    EXPECT_TRUE(IsContractionStem(stem)) << stem;
  }
  for (const char* word : {"don", "wouldnt", "wouldn couldn"}) {
    EXPECT_FALSE(IsContractionStem(word)) << word;
  }
  for (const char* word : {"", "hmm", "\xE7"}) EXPECT_TRUE(HasNoVowel(word)) << word;  // ç
  EXPECT_FALSE(HasNoVowel("myth"));
  EXPECT_FALSE(HasNoVowel("\xE7\xE0"));  // çà
  EXPECT_TRUE(IsAllUpperCase(""));
  EXPECT_TRUE(IsAllUpperCase("\xC0\x42\x8C\x8A\x9F"));  // ÀBŒŠŸ
  EXPECT_FALSE(IsAllUpperCase("Ab"));
  EXPECT_FALSE(IsAllUpperCase("\xD7"));  // ×
  for (const auto& [before, after] :
       {std::pair{"end--", "end"}, {"--end", "--end"}, {"\"-\"", ""}}) {
    AnsiString word = before;
    StripTrailingChars(word, "-\"");
    EXPECT_EQ(word, after) << before;
  }
}

TEST(NormalizeWordTest, PipelineSteps) {
  const auto normalized = [](AnsiString word, const NormalizationOptions& options) {
    NormalizeWord(word, options);
    return word;
  };
  NormalizationOptions options;  // no plurals, no apostrophes, no-vowel words dropped
  for (const char* fragment : {"t", "s", "T", "couldn", "n", "en", "hmm", ""}) {
    EXPECT_EQ(normalized(fragment, options), "") << fragment;
  }
  EXPECT_EQ(normalized("don", options), "don");
  EXPECT_EQ(normalized("known-", options), "known");
  EXPECT_EQ(normalized("trees", options), "trees");
  options.dropFinalS = true;
  EXPECT_EQ(normalized("\"trees\"", options), "\"tree");
  EXPECT_EQ(normalized("Mice", options), "Mice");
  options.caseSignificant = true;
  EXPECT_EQ(normalized("Mice", options), "MOUSE");

  NormalizationOptions reading;
  reading.blnReadingWords = reading.dropFinalS = true;
  EXPECT_EQ(normalized("couldn", reading), "couldn");
  EXPECT_EQ(normalized("trees", reading), "trees");

  NormalizationOptions keepAll;
  keepAll.ignoreNoVowel = false;
  keepAll.allowApostrophes = true;
  EXPECT_EQ(normalized("hmm", keepAll), "hmm");
  EXPECT_EQ(normalized("couldn", keepAll), "couldn");

  NormalizationOptions markup;
  EXPECT_EQ(normalized("caf&eacute", markup), "caf&eacute");
  markup.blnCharacterEntitiesPossible = true;
  EXPECT_EQ(normalized("caf&eacute", markup), "caf");
  EXPECT_EQ(normalized("rue&#12", markup), "rue");
  EXPECT_EQ(normalized("&amp", markup), "");
  EXPECT_EQ(normalized("area&#x", markup), "area&#x");  // "&#x;" names no character
}

}  // namespace
}  // namespace wordtally
