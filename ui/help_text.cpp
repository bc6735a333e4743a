#include "ui/help_text.h"

namespace wordtally::ui {

QString HelpHtml() {
  return QStringLiteral(R"(
<h2>Wordtally help</h2>
<p>Wordtally counts how often each different word occurs in a text and lists the words with
their frequencies. Only words of three or more letters are counted.</p>

<h3>Counting the words of a text</h3>
<ol>
<li>Choose the source: <b>file</b> or <b>clipboard</b>.</li>
<li>For a file, type its name into <i>Input file</i>, choose it with <i>Choose...</i> or drop it
onto the window. Text files (ANSI or UTF-8; markup in HTML, XML and PHP files is skipped) and
Word "docx" documents can be counted. Character references of web pages, such as
&amp;eacute; or &amp;#8220;, are read as the characters they stand for. When a file is chosen
it is checked at once, and the <b>UTF-8</b> box is set when the file appears to be UTF-8
encoded.</li>
<li>For the clipboard, copy the text in another program, or type or paste it into the left-hand
text box and press <i>Copy to clipboard</i>. <i>Paste clipboard text</i> shows the clipboard's
text in that box; the label below it tells how much text the clipboard holds.</li>
<li>Optionally name an <i>Output file</i> (extension "txt" or "csv"). Tick <b>Disable</b> to
count without writing the file.</li>
<li>Choose the word order and the format, then press <b>Count words</b> (or Alt+C).</li>
</ol>
<p>Started as <code>wordtally-gui FILE</code>, as a file manager's "Open with" does, the program
opens with FILE as the input file, checked as if you had typed its name.</p>
<p>While the words are counted the button reads <b>Stop</b>: press it to stop the run. You are
then asked whether to list the words found so far. The elapsed time, the number of different
words found and a progress bar are shown while the run goes on. Ticking <b>Don't display words
as found</b> makes a run faster, because new words are then not echoed into the output box.
Ctrl+Home and Ctrl+End go to the beginning and the end of the output box.</p>

<h3>Counting many files at once</h3>
<p>Choose several files with <i>Choose...</i>, or drop several files or a folder onto the window,
and they are counted together as one text, a <i>corpus</i>. The list below the output file shows
what will be counted, with each file's size: a folder is shown with its total and, below it,
the text, markup and docx files found in it (hidden ones are left out). <i>Add files...</i>,
<i>Add folder...</i> and dropping onto the list add to it; <i>Remove</i> or the Delete key takes
the selected entry out. One ordinary file alone is counted as before.</p>
<p>For example, drop the folder <code>letters</code> and the file <code>diary.txt</code> onto the
window and press <b>Count words</b>. The status bar tells which file is being read and how much of
all the text is done ("File 3 of 20: june.txt - 45%"), and <b>Stop</b> works across files. The
listing totals the words of every file, and the statistics tell how many files were counted and
skipped. Then <i>File &gt; Save corpus table...</i> writes a CSV table with each word's rank,
frequency, range (the number of files it occurs in) and its count in every file, and
<i>File &gt; Save counts...</i> writes a count file. A count file in the list is counted as the
files it was made from, without reading them again, so that <code>letters.counts</code> plus
next month's letters give the words of both; it must have been made under the same settings.</p>

<h3>Results table, charts and keywords</h3>
<p>The output box holds at most 65000 characters, so the listing of a long text shows only its
first part. The tabs beside <i>Words found</i> show the whole result of the last run.</p>
<p><b>Results table</b>: every word in the list with its rank, frequency, share of the
instances in the list and cumulative share, in percent. Click a column heading to sort by it,
and again for the other direction. Type into the filter box to see only the words that contain
those letters, or use <b>*</b> (any letters) and <b>?</b> (one letter) for a pattern such as
<code>un*ly</code>; case is ignored. The number of words shown stands beside the box.
<i>Copy</i> (or Ctrl+C) puts the selected rows on the clipboard as tab-separated text, ready to
paste into a spreadsheet. <i>Export CSV...</i> saves the rows shown as a CSV file (UTF-8);
<i>Export listing...</i> saves them as the output file is written, in the chosen format.
After a corpus run (see above) the table also shows each word's range, the number of files it
occurs in, and a column with its count in each file.</p>
<p><b>Charts</b>: the 10, 20 or 50 most frequent words as bars (choose in <i>Bar
chart</i>); rank against frequency on logarithmic axes, with the Zipf exponent fitted by least
squares (the dashed line); and the coverage: the share of all instances that the top k words
cover. <i>Save PNG...</i> and <i>Save SVG...</i> save the chart on show.</p>
<p><b>Keywords</b>: compares the last run with a reference, to find the words the text uses
unusually often or rarely. Type the reference's path or choose it with <i>File...</i> (a text
file, a docx file or a count file) or <i>Folder...</i> (every text in it), choose the cut-off
and press <i>Compare</i>. The reference is counted with the current settings, so both word lists
pass the same filters. For each word the table gives its frequency in the text and in the
reference, the log-likelihood (G&sup2;), which tells how sure the difference is, and the log
ratio, which tells how large it is (1 means twice as frequent, -1 half as frequent; a word
missing from one side counts as half an occurrence there). <i>over</i> means more frequent in
the text, <i>under</i> less. Only words whose G&sup2; reaches the cut-off are listed, by falling
G&sup2;: p &lt; 0.05 needs 3.84, p &lt; 0.01 6.63, p &lt; 0.001 10.83 and p &lt; 0.0001 15.13.
With <b>Bonferroni correction</b> the p is divided by the number of words compared, which asks
for a larger G&sup2;. The table has the same filter, copy and export as the results table.</p>
<p>On the command line, <code>--reference PATH... --keywords FILE.csv</code> writes the keywords
to a CSV file; <code>--keyword-cutoff 3.84|6.63|10.83|15.13</code> and
<code>--bonferroni</code> choose the cut-off.</p>

<h3>Settings</h3>
<p>Open <i>Options &gt; Settings...</i> to decide what counts as a word:</p>
<ul>
<li><b>Upper/lower case significant</b>: when not ticked, words that differ only in case count
as one word.</li>
<li><b>Allow 'words' with</b> <b>hyphens</b>, <b>apostrophes</b> or <b>numerals</b>: these
characters may then occur inside a word.</li>
<li><b>Convert plural words in English to singular form</b>.</li>
<li><b>Allow only 7-bit ASCII characters</b>: words with accented or other non-ASCII letters are
left out.</li>
<li><b>Ignore words with no vowel or 'y'</b>.</li>
<li><b>Ignore words with fewer than</b> <i>n</i> <b>occurrences</b> (2 to 9).</li>
<li><b>Ignore common words in file</b>: choose the language (English, German, Spanish,
Portuguese, Italian, French or all six) with <i>Language...</i>, or any other file of words
with <i>Other file...</i>. Words in such a file are separated by blanks or line breaks; text
between /* and */ and from // to the end of a line is skipped.</li>
<li><b>Ignore these words</b>: words separated by spaces. The list is tidied (lower case,
sorted) when you leave the box; a character that cannot occur in a word is reported.</li>
<li><b>Allow start- and end-comment markers</b>: text between the start and end markers of the
1st or 2nd pair is not counted. An empty end marker means the comment runs to the end of the
line.</li>
<li><b>Include commas in output file</b>, <b>Warn before overwriting output file</b> and
<b>Save settings on quit</b>.</li>
<li><b>Modern text handling</b>: see below.</li>
</ul>
<p><i>Save settings...</i> and <i>Load settings...</i> keep named settings files ("*.qzl"),
which the command line reads too (<code>--settings</code>). <i>Reinitialize</i> restores the
default settings.</p>

<h3>Modern text handling</h3>
<p>The classic rules were made for text files written on Windows. For text from today's
systems (Linux, macOS, the web) tick <b>Modern text handling</b> in the settings window
(command line: <code>--modern-text</code>). Then:</p>
<ul>
<li>a file with Unix line ends (LF) is counted whatever its size, without notices or
questions;</li>
<li>a file whose bytes are valid UTF-8 with at least one non-ASCII character is taken as UTF-8,
even without a byte-order mark or charset declaration (a German novel saved on Linux, say, whose
words would otherwise come out garbled), and every file taken as UTF-8 is also checked for
control characters, so that a binary file is refused;</li>
<li>clipboard text is refused only for real control characters, so that curly apostrophes and
dashes no longer make it "not natural language words".</li>
</ul>
<p>Use it for such files and texts; leave it off to get exactly the classic messages and
results.</p>

<h3>Listing formats</h3>
<p>The word order is <b>by frequency</b> (most frequent first, with ranks) or
<b>alphabetical</b>. The format chooses the columns of each line: rank frequency word,
rank word frequency, rank frequency, rank word, frequency rank, frequency word, word rank,
word frequency, word, and word (+ commas), which lists the words one after another separated by
commas. The first line names the columns and, where the word is the last column, tells the
length of the longest word. Below the list the statistics tell how many words are in the list,
how many were ignored and excluded, and how many instances of words were found.</p>

<h3>The output file</h3>
<p>When an output file is named and not disabled, the listing is also written to it, in the
Windows (ANSI) character set with Windows line ends. An existing file is replaced (you can ask to
be warned first). Before counting starts the output file is checked: it cannot be the input
file or the common-words file in use, under any name, and it must be an ordinary file or not
exist yet; a folder, a pipe, a device or a link to a missing file is refused with a message and
left as it is. If the disk fills up while the list is written, you are told so. A large input file asks whether you wish to name an output file, because the
output box holds at most 65000 characters; the Results table holds the whole list in any
case.</p>
<p><b>Opening the output file in a spreadsheet:</b> the file begins with a note saying how to
open it. State that the file is delimited by spaces (or by commas when <i>Include commas in
output file</i> is ticked), set the file origin to Windows (ANSI) and the text qualifier to the
double quote.</p>
)");
}

}  // namespace wordtally::ui
