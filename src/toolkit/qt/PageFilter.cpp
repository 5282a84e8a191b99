#include "toolkit/qt/PageFilter.h"

#include <algorithm>
#include <utility>

#include <QColor>
#include <QHash>
#include <QMap>
#include <QRegularExpression>
#include <QTextDocumentFragment>

#include "toolkit/ShowURL.h"
#include "toolkit/qt/QtText.h"
#include "toolkit/qt/ToolTip.h"

namespace toolkit::qt {
namespace {

// What a page may have at most, so that it is shown within half a second: a cost of 1 is about 3 µs. Qt takes 7 µs for
// a tag and 50 for a cell. It takes longer for an item the more there are in its list, for each piece of a paragraph
// the more there is of that, and for a tag the more rules there are. Most scripts beyond Cyrillic take three times as
// long.
constexpr qsizetype mostCost = 150'000;
constexpr int costOfTag = 4;
constexpr int costOfCell = 15;
constexpr int costOfPicture = 60;
constexpr int costOfText = 3;
constexpr qsizetype charactersPerCost = 6;
constexpr QChar firstOfSlowScripts(0x0590);
constexpr qsizetype rulesPerCost = 3;
constexpr qsizetype mostInParagraph = 4'500;
constexpr qsizetype placeOfTag = 25;
constexpr int mostItems = 500;
constexpr int mostColumns = 50;
constexpr qsizetype mostDepth = 64;
constexpr int mostTables = 4;
constexpr qsizetype mostAttributes = 50;
constexpr int mostRules = 40;
constexpr qsizetype longestStyle = 2'000;
constexpr std::size_t mostPictures = 200;
constexpr int tallestPicture = 4000;
constexpr int tallestWithoutWidth = 300;
constexpr qsizetype longestTip = 500;

/// The part that an element plays in the structure of a page.
enum class Kind { Ignored, Empty, Inline, Link, Paragraph, Block, List, Table, Item, Row, Cell };

struct Element {
  Kind Is = Kind::Ignored;
  /// The element of HTML 4 that is shown in its place.
  QString Name;
};

using Attributes = QMap<QString, QString>;

QRegularExpression Pattern(const char* pattern) {
  return QRegularExpression(
      pattern, QRegularExpression::CaseInsensitiveOption | QRegularExpression::ExtendedPatternSyntaxOption);
}

/// How to treat the element of that name. The tags of an unknown element are left out; its content is kept.
Element ElementOf(const QString& name) {
  static const QHash<QString, Element> elements = [] {
    constexpr std::pair<Kind, const char*> rows[] = {
        {Kind::Empty, "br hr img"},
        {Kind::Inline,
         "abbr=span b big cite code del=s dfn em font i ins=u kbd label=span mark=span nobr q=span s samp "
         "small span strike=s strong sub sup tt u var"},
        {Kind::Link, "a"},
        {Kind::Paragraph, "p"},
        {Kind::Block,
         "address article=div aside=div blockquote body center details=div div fieldset=div "
         "figcaption=div figure=div footer=div form=div h1 h2 h3 h4 h5 h6 header=div hgroup=div "
         "legend=div main=div nav=div pre section=div summary=div"},
        {Kind::List, "dir=ul dl menu=ul ol ul"},
        {Kind::Table, "table"},
        {Kind::Item, "dd dt li"},
        {Kind::Row, "tr"},
        {Kind::Cell, "td th"}};
    QHash<QString, Element> made;
    for (const auto& [kind, names] : rows) {
      for (const QString& entry : QString(names).split(' '))
        made[entry.section('=', 0, 0)] = {kind, entry.section('=', -1)};
    }
    return made;
  }();
  return elements.value(name);
}

/// The harmless CSS declarations of `text`: they contain no address, and sizes are limited. Relative font sizes are not
/// allowed, because they multiply in nested elements.
QString HarmlessDeclarations(const QString& text) {
  static const QRegularExpression harmless = Pattern(R"(^\s* (?:
      (?:color|background(?:-color)?) \s*:\s* (?:\#(?:[\da-f]{3}|[\da-f]{6}|[\da-f]{8})|rgba?\([\d\ .,%]{1,40}\)|[a-z]+)
     |font-size \s*:\s* (?:\d{1,2}(?:\.\d{1,2})?p[xt]|[a-z-]+)
     |(?:font-(?:family|style|weight)|(?:margin|padding)(?:-(?:top|right|bottom|left))?|text-(?:align|decoration)
       |vertical-align|white-space) \s*:\s* (?!.*\d{4})[\w\ %.,'"-]{1,100}
    ) \s*$)");
  QString kept;
  for (const QString& one : text.left(longestStyle).split(';')) {
    if (harmless.match(one).hasMatch()) kept += one.trimmed() + ';';
  }
  return kept;
}

/// The harmless rules of a style sheet, for tags and classes.
QString HarmlessRules(QString sheet) {
  static const QRegularExpression comment(R"(/\*.*?(?:\*/|\z))", QRegularExpression::DotMatchesEverythingOption);
  static const QRegularExpression selectors = Pattern(R"(^[\w\s.,-]{1,100}$)");
  QString kept;
  for (const QString& rule : sheet.remove(comment).split('}').mid(0, mostRules)) {
    const QString declarations = HarmlessDeclarations(rule.section('{', 1));
    if (selectors.match(rule.section('{', 0, 0)).hasMatch() && !declarations.isEmpty())
      kept += rule.section('{', 0, 0) + '{' + declarations + '}';
  }
  return kept;
}

/// The harmless attributes as text, to be put behind the name in a tag. Floating pictures and tables are not allowed:
/// laying them out takes quadratic time.
QString HarmlessAttributes(const QString& element, const Attributes& attributes) {
  static const QRegularExpression harmless = Pattern(R"(^(?:
      (?!img|table)\w+\ align=[a-z]+ | table\ align=center
     |\w+\ (?:class|dir|face|type|valign)=[\w\ ,-]{1,100}
     |\w+\ (?:border|cellpadding|cellspacing|size)=[+-]?\d{1,2}
     |\w+\ (?:col|row)span=(?:[1-4]?\d|50)
     |\w+\ width=(?:1?\d{1,3}|\d{1,2}%|100%)
    )$)");
  QString kept;
  for (auto one = attributes.begin(); one != attributes.end(); ++one) {
    const bool isStyle = one.key() == QLatin1String("style");
    const bool isColor = one.key() == QLatin1String("color") || one.key() == QLatin1String("bgcolor");
    const QString value = isStyle ? HarmlessDeclarations(*one) : *one;
    if (isStyle   ? !value.isEmpty()
        : isColor ? QColor::isValidColorName(value)
                  : harmless.match(element + ' ' + one.key() + '=' + value).hasMatch())
      kept += ' ' + one.key() + "=\"" + value.toHtmlEscaped() + '"';
  }
  return kept;
}

/// The attributes of a tag. Control characters are removed, as browsers do in addresses.
Attributes AttributesIn(const QString& text) {
  static const QRegularExpression attribute =
      Pattern(R"re(([^\s/][^\s/=]*+)(?:\s*+=\s*+(?:"([^"]*+)"?+|'([^']*+)'?+|(\S*+)))?+)re");
  static const QRegularExpression control("[\\x00-\\x1f]");
  Attributes all;
  for (const auto& match : attribute.globalMatch(text)) {
    const QString name = match.captured(1).toLower();
    if (all.contains(name) || all.size() == mostAttributes) continue;
    QString value = match.captured(2) + match.captured(3) + match.captured(4);
    // Qt decodes the character references.
    if (value.contains('&')) value = QTextDocumentFragment::fromHtml(value.replace('<', "&lt;")).toPlainText();
    all[name] = value.remove(control).trimmed();
  }
  return all;
}

/// The value of an attribute as a number from 1 to `most`; 0 if it is anything else.
int NumberIn(const QString& value, int most) {
  const int number = value.toInt();
  return number <= most ? std::max(number, 0) : 0;
}

/// Reads a page in one pass until its cost exceeds the limit, and closes every element that it opens.
class Filter {
 public:
  Filter(const QString& page, int mostWidth) : page_(page), mostWidth_(mostWidth) {}

  FilteredPage Run() {
    // Elements whose content is not HTML; comments and declarations; tags; text up to the next tag or the end of the
    // line. The quantifiers are possessive, so that the time is linear in the length of the page.
    static const QRegularExpression token = Pattern(R"((?s)
       <(style|script|title|textarea|iframe|noembed|noframes|xmp)\b[^>]*+>(.*?)(?:</\1\b[^>]*+>?+|\z)
      |<!--(?:>|.*?(?:-->|\z)) | <[!?][^>]*+>?+
      |<(/?+)([a-z][^\s/>]*+)((?:[^=>]++|=\s*+(?:"[^"]*+"?+|'[^']*+'?+|[^\s>]*+))*+)(>?+)
      |(<?+[^<\n]{0,900}+[^<\n\ ]{0,100}+\n?+))");
    while (place_ < page_.size() && cost_ <= mostCost) {
      const auto match = token.match(
          page_, place_, QRegularExpression::NormalMatch,
          QRegularExpression::AnchorAtOffsetMatchOption | QRegularExpression::DontCheckSubjectStringMatchOption);
      if (!match.hasMatch()) break;  // a tag that exceeds the limits of PCRE
      place_ = match.capturedEnd();
      ++cost_;
      if (inParagraph_ >= mostInParagraph) SplitParagraph();
      if (match.hasCaptured(7)) {
        Text(match.captured(7));
      } else if (match.capturedLength(6) > 0) {
        const QString name = match.captured(4).toLower();
        match.capturedLength(3) > 0 ? EndTag(name) : StartTag(name, AttributesIn(match.captured(5)));
      } else if (match.capturedView(1).startsWith(u"st", Qt::CaseInsensitive) && rules_.isEmpty()) {
        rules_ = HarmlessRules(match.captured(2));
        costOfRules_ = rules_.count('}') / rulesPerCost;
      }
    }
    CloseDownTo(0);
    made_.IsCut = place_ < page_.size();
    made_.HTML.prepend("<style>" + rules_ + "</style>");
    return std::move(made_);
  }

 private:
  struct OpenElement {
    Element Shown;
    QString Tag;
    /// A table has rows and columns, a row has columns, a list has items.
    int Rows = 0;
    int Columns = 0;
    int Items = 0;
  };

  void Text(QString text) {
    const bool isBlank = text.trimmed().isEmpty();
    if (made_.HTML.isEmpty() && isBlank) return;  // <body> may still follow
    const auto isSlow = [](QChar character) { return character >= firstOfSlowScripts; };
    cost_ += costOfText + (text.size() + 2 * std::ranges::count_if(text, isSlow)) / charactersPerCost;
    inParagraph_ += text.size();
    followsBlock_ = followsBlock_ && isBlank;
    made_.HTML += text.replace('<', "&lt;");
  }

  void StartTag(const QString& name, const Attributes& attributes) {
    const Element element = ElementOf(name);
    if (name == QLatin1String("base")) baseTarget_ = attributes.value("target");
    if (name == QLatin1String("img")) {
      Picture(attributes);
    } else if (element.Is == Kind::Empty) {
      if (name == QLatin1String("hr")) CloseDownTo(Find(Kind::Paragraph));
      Write('<' + name + '>', element.Is);
    } else if (element.Is == Kind::Item) {
      OpenItem(element, attributes);
    } else if (element.Is >= Kind::Row) {
      OpenCell(element, attributes);
    } else if (element.Is >= Kind::Inline) {
      // End tags that HTML allows to be omitted.
      if (element.Is > Kind::Inline) CloseDownTo(Find(element.Is == Kind::Link ? Kind::Link : Kind::Paragraph));
      Open(element, attributes);
    }
  }

  void EndTag(const QString& name) {
    const Element element = ElementOf(name);
    if (element.Is >= Kind::Inline && name != QLatin1String("body")) CloseDownTo(Find(element.Is, element.Name));
  }

  void Open(const Element& element, const Attributes& attributes) {
    const bool isLateBody = element.Name == QLatin1String("body") && !made_.HTML.isEmpty();
    const bool isTooDeep = open_.size() == mostDepth || (element.Is == Kind::Table && Tables() == mostTables);
    if (isLateBody || isTooDeep) return;
    const QString link = element.Is == Kind::Link ? LinkIn(attributes) : QString();
    Push({element, '<' + element.Name + HarmlessAttributes(element.Name, attributes) + link + '>'});
  }

  void Push(const OpenElement& open) {
    Write(open.Tag, open.Shown.Is);
    open_.append(open);
  }

  void Write(const QString& tag, Kind kind) {
    cost_ += costOfTag + costOfRules_;
    inParagraph_ = kind > Kind::Link ? 0 : inParagraph_ + placeOfTag;
    followsBlock_ = false;
    made_.HTML += tag;
  }

  // A long list is continued as another list.
  void OpenItem(const Element& element, const Attributes& attributes) {
    CloseDownTo(Find(Kind::Item));
    const qsizetype list = Find(Kind::List);
    const bool isOutside = list == open_.size();
    if (!isOutside && ++open_[list].Items % mostItems == 0) Reopen(list);
    Open(isOutside ? Element{Kind::Block, "div"} : element, attributes);
  }

  void OpenCell(const Element& element, const Attributes& attributes) {
    const qsizetype table = Find(Kind::Table);
    if (table == open_.size()) return;
    if (element.Is == Kind::Row || Find(Kind::Row) == open_.size()) {
      CloseDownTo(table + 1);
      Grow(open_[table], 1, 0);
      Open({Kind::Row, "tr"}, element.Is == Kind::Row ? attributes : Attributes());
    }
    const qsizetype row = Find(Kind::Row);
    if (element.Is == Kind::Row || row == open_.size()) return;
    CloseDownTo(row + 1);
    const int columns = std::max(NumberIn(attributes.value("colspan"), mostColumns), 1);
    const int rows = std::max(NumberIn(attributes.value("rowspan"), mostColumns), 1);
    if (open_[row].Columns + columns > mostColumns) return;
    open_[row].Columns += columns;
    Grow(open_[table], rows - 1, open_[row].Columns);
    Open(element, attributes);
  }

  // Qt spends time on each place of a table's grid, even if it has no cell, and twice as much in a nested table.
  void Grow(OpenElement& table, int moreRows, int columns) {
    const qsizetype before = qsizetype{table.Rows} * table.Columns;
    table.Rows += moreRows;
    table.Columns = std::max(table.Columns, columns);
    cost_ += (qsizetype{table.Rows} * table.Columns - before) * (costOfCell << Tables());
  }

  void Picture(const Attributes& attributes) {
    std::string address = FromQt(attributes.value("src"));
    if (address.empty()) return;
    const auto number = static_cast<std::size_t>(std::ranges::find(made_.Pictures, address) - made_.Pictures.begin());
    made_.LacksPictures = made_.LacksPictures || number == mostPictures;
    if (number == mostPictures) return;
    if (number == made_.Pictures.size()) made_.Pictures.push_back(std::move(address));
    cost_ += costOfPicture;
    // Qt would put the picture into the block that has just ended. A zero-width space starts a new block.
    QString tag = QStringLiteral("%1<img src=\"picture:%2\"").arg(followsBlock_ ? "&#8203;" : "").arg(number);
    const int width = NumberIn(attributes.value("width"), 99'999);
    const int height = NumberIn(attributes.value("height"), width > 0 ? tallestPicture : tallestWithoutWidth);
    if (width > 0) tag += QStringLiteral(" width=%1").arg(std::min(width, mostWidth_));
    if (height > 0 && width <= mostWidth_) tag += QStringLiteral(" height=%1").arg(height);
    Write(tag + '>', Kind::Empty);
  }

  QString LinkIn(const Attributes& attributes) {
    static const QStringList here{"", "_self", "_top", "_parent"};
    const std::string url = FromQt(attributes.value("href"));
    if (!IsForBrowser(url)) return {};
    const QString target = attributes.value("target").isEmpty() ? baseTarget_ : attributes.value("target");
    made_.Links.push_back({url, here.contains(target.toLower()) ? LinkTarget::SamePlace : LinkTarget::NewWindow});
    const QString tip = ToolTipMarkup(ToQt(url).left(longestTip));
    return QStringLiteral(" href=\"link:%1\" title=\"").arg(made_.Links.size() - 1) + tip.toHtmlEscaped() + '"';
  }

  /// The index of the innermost open element of that kind, and of that name unless it is empty. The search ends at the
  /// innermost table, for items at the innermost list. Returns the number of open elements if there is none.
  [[nodiscard]] qsizetype Find(Kind kind, const QString& name = {}) const {
    for (qsizetype place = open_.size(); place-- > 0;) {
      const Element& element = open_[place].Shown;
      if (element.Is == kind && (name.isEmpty() || element.Name == name)) return place;
      if (element.Is == (kind == Kind::Item ? Kind::List : Kind::Table)) break;
    }
    return open_.size();
  }

  [[nodiscard]] qsizetype Tables() const {
    return std::ranges::count_if(open_, [](const OpenElement& open) { return open.Shown.Is == Kind::Table; });
  }

  void CloseDownTo(qsizetype depth) {
    while (open_.size() > depth) {
      const Element element = open_.takeLast().Shown;
      made_.HTML += "</" + element.Name + '>';
      if (element.Is <= Kind::Link) continue;
      inParagraph_ = 0;
      followsBlock_ = true;
    }
  }

  void Reopen(qsizetype depth) {
    const QList<OpenElement> again = open_.mid(depth);
    CloseDownTo(depth);
    for (const OpenElement& one : again) Push(one);
  }

  void SplitParagraph() {
    const qsizetype paragraph = Find(Kind::Paragraph);
    if (paragraph == open_.size()) made_.HTML += "<div></div>";
    Reopen(paragraph);
    inParagraph_ = 0;
  }

  const QString& page_;
  int mostWidth_;
  qsizetype place_ = 0;
  qsizetype cost_ = 0;
  FilteredPage made_;
  QString rules_;
  qsizetype costOfRules_ = 0;
  QString baseTarget_;
  QList<OpenElement> open_;
  // The length of the current paragraph, in which a tag counts as some characters.
  qsizetype inParagraph_ = 0;
  // Whether only white space has followed the last end of a block.
  bool followsBlock_ = false;
};

}  // namespace

FilteredPage FilterPage(const QString& page, int mostWidth) { return Filter(page, mostWidth).Run(); }

}  // namespace toolkit::qt
