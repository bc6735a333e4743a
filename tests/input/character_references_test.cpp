// The character references of markup text, decoded by the markup layer.
#include <gtest/gtest.h>

#include "input/markup.h"

namespace wordtally {
namespace {

constexpr MarkupKind kHtml = MarkupKind::Html;
constexpr MarkupKind kXml = MarkupKind::Xml;

// Lines of real pages (a Gutenberg novel in English and one in French, a JATS article) and
// others, as the markup layer leaves them.
TEST(CharacterReferences, BecomeCodePageCharactersOrANonWordCharacter) {
  const struct {
    MarkupKind kind;
    AnsiString line, decoded;
  } kCases[] = {
      {kHtml, "<p>Said I: &ldquo;How do you manage with politics?&rdquo;</p>",
       " Said I: \x93How do you manage with politics?\x94 "},
      {kHtml, "as to politics,&mdash;because we have none.&nbsp;",
       "as to politics,\x97" "because we have none.\xA0"},
      {kHtml, "Le fr&egrave;re racont&eacute; par la s&oelig;ur",
       "Le fr\xE8re racont\xE9 par la s\x9Cur"},
      {kHtml, "&laquo;&euro;&trade;&copy;&para;&iquest;&times;&quot;",
       "\xAB\x80\x99\xA9\xB6\xBF\xD7\""},
      {kXml, "hormone &#x003b1;-subunit (GPH&#x003b1;) and 2,2&#x02032;,4",
       "hormone ?-subunit (GPH?) and 2,2?,4"},
      {kHtml, "&alpha;&#946;&#X3B3;&nvlt;&#1114112;&#xD800;", "???" "<???"},  // not a trigraph
      // The soft hyphen joins the halves of its word.
      {kHtml, "Ham&shy;mond con&#173;ver&#xAD;sation", "Hammond conversation"},
      {kHtml, "&nosuch; AT&T R&amp;D &Eacute &#x; &#12a;", "&nosuch; AT&T R&D &Eacute &#x; &#12a;"},
      // XML knows its own five names only.
      {kXml, "&lt;a&gt; &quot;it&apos;s&quot; &amp; caf&eacute;", "<a> \"it's\" & caf&eacute;"},
  };
  for (const auto& [kind, line, decoded] : kCases) {
    MarkupFilter filter(kind);
    AnsiString filtered = line;
    filter.FilterLine(filtered);
    EXPECT_EQ(filtered, decoded) << line;
  }
}

}  // namespace
}  // namespace wordtally
