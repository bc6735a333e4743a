#include "engine/normalisation.h"

#include <gtest/gtest.h>

namespace wordtally {
namespace {

AnsiString Singular(AnsiString word, bool caseSensitive) {
  EnglishPluralToSingular(word, caseSensitive);
  return word;
}

AnsiString Normalized(AnsiString word, const NormalizationOptions& options) {
  NormalizeWord(word, options);
  return word;
}

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

TEST(PluralTest, RulesInOrderWhenCaseIsNotSignificant) {
  const std::pair<const char*, const char*> cases[] = {
      {"cities", "city"},   {"ties", "tie"},       {"series", "sery"},     {"wishes", "wish"},
      {"classes", "class"}, {"buzzes", "buzz"},    {"heroes", "hero"},     {"floes", "floe"},
      {"shoes", "shoe"},    {"horses", "horse"},   {"boxes", "boxe"},      {"trees", "tree"},
      {"gas", "ga"},        {"is", "is"},          {"us", "us"},           {"as", "as"},
      {"glass", "glass"},   {"bus", "bus"},        {"physics", "physics"}, {"analysis", "analysis"},
      {"rights", "rights"}, {"SPECIES", "SPECIES"}, {"mice", "mouse"},     {"lice", "louse"},
      {"Mice", "Mice"},     {"  cats ", "cat"},    {"plays", "play"},      {"bees", "bee"},
      {"goes", "go"},       {"days", "day"},
  };
  for (const auto& [plural, singular] : cases) EXPECT_EQ(Singular(plural, false), singular) << plural;
}

TEST(PluralTest, CapitalEndingsWhenCaseIsSignificant) {
  const std::pair<const char*, const char*> cases[] = {
      {"Mice", "MOUSE"},   {"mice", "mouse"},   {"LICE", "LOUSE"}, {"CITIES", "CITY"},
      {"Cities", "City"},  {"HEROES", "HERO"},  {"shoes", "sho"},  {"FLOES", "FLOE"},
      {"HORSES", "HORSE"}, {"Trees", "Tree"},   {"Rights", "Rights"},
  };
  for (const auto& [plural, singular] : cases) EXPECT_EQ(Singular(plural, true), singular) << plural;
}

TEST(CharacterClassTest, StemsVowelsCapitalsAndTrailingChars) {
  for (const char* stem : {"couldn", "n", "en", "ren", "ldn", "uldn", "COULDN", "wasn"}) {
    EXPECT_TRUE(IsContractionStem(stem)) << stem;
  }
  for (const char* word : {"don", "wouldnt", "wouldn couldn"}) {
    EXPECT_FALSE(IsContractionStem(word)) << word;
  }

  EXPECT_TRUE(HasNoVowel(""));
  EXPECT_TRUE(HasNoVowel("hmm"));
  EXPECT_TRUE(HasNoVowel("\xE7"));  // ç
  EXPECT_FALSE(HasNoVowel("myth"));
  EXPECT_FALSE(HasNoVowel("\xE7\xE0"));  // çà

  EXPECT_TRUE(IsAllUpperCase(""));
  EXPECT_TRUE(IsAllUpperCase("\xC0\x42\x8C\x8A\x9F"));  // ÀBŒŠŸ
  EXPECT_FALSE(IsAllUpperCase("Ab"));
  EXPECT_FALSE(IsAllUpperCase("\xD7"));  // ×

  AnsiString word = "end--";
  StripTrailingChars(word, "-\"");
  EXPECT_EQ(word, "end");
  word = "--end";
  StripTrailingChars(word, "-\"");
  EXPECT_EQ(word, "--end");
  word = "\"-\"";
  StripTrailingChars(word, "-\"");
  EXPECT_EQ(word, "");
}

TEST(NormalizeWordTest, PipelineSteps) {
  NormalizationOptions options;  // no plurals, no apostrophes, no-vowel words dropped
  for (const char* fragment : {"t", "s", "T", "couldn", "n", "en", "hmm", ""}) {
    EXPECT_EQ(Normalized(fragment, options), "") << fragment;
  }
  EXPECT_EQ(Normalized("don", options), "don");
  EXPECT_EQ(Normalized("known-", options), "known");
  EXPECT_EQ(Normalized("trees", options), "trees");

  options.dropFinalS = true;
  EXPECT_EQ(Normalized("\"trees\"", options), "\"tree");
  EXPECT_EQ(Normalized("Mice", options), "Mice");
  options.caseSignificant = true;
  EXPECT_EQ(Normalized("Mice", options), "MOUSE");

  NormalizationOptions reading;
  reading.blnReadingWords = true;
  reading.dropFinalS = true;
  EXPECT_EQ(Normalized("couldn", reading), "couldn");
  EXPECT_EQ(Normalized("trees", reading), "trees");

  NormalizationOptions keepAll;
  keepAll.ignoreNoVowel = false;
  keepAll.allowApostrophes = true;
  EXPECT_EQ(Normalized("hmm", keepAll), "hmm");
  EXPECT_EQ(Normalized("couldn", keepAll), "couldn");

  NormalizationOptions markup;
  EXPECT_EQ(Normalized("caf&eacute", markup), "caf&eacute");
  markup.blnCharacterEntitiesPossible = true;
  EXPECT_EQ(Normalized("caf&eacute", markup), "caf");
  EXPECT_EQ(Normalized("rue&#12", markup), "rue");
  EXPECT_EQ(Normalized("&amp", markup), "");
  EXPECT_EQ(Normalized("area&#x", markup), "area&#x");  // "&#x;" names no character
}

}  // namespace
}  // namespace wordtally
