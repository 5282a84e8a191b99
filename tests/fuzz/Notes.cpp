// Release notes, and the page that they may refer to: the input up to its first NUL, and the rest. The result is
// filtered and laid out as in the notes viewer.

#include <algorithm>

#include <QGuiApplication>
#include <QImage>
#include <QRegularExpression>
#include <QTextDocument>

#include "tests/fuzz/Target.h"
#include "tests/support/HandPlatform.h"
#include "toolkit/ShowURL.h"
#include "toolkit/Text.h"
#include "toolkit/qt/PageFilter.h"
#include "update/check/ReleaseNotes.h"

namespace {

constexpr int mostDepth = 64;
constexpr int width = 600;

void RequireHarmless(const toolkit::qt::FilteredPage& page) {
  static const QRegularExpression tag(R"re(<(/?)(\w+)((?: [\w-]+(?:=(?:"[^"<>]*"|\d+))?)*)>)re");
  static const QRegularExpression reference(R"re( (?:href|src)="([a-z]+):(\d+)")re");
  static const QRegularExpression value("\"[^\"]*\"");
  static const QRegularExpression forbidden(
      "^(?:script|iframe|object|embed|link|meta|base|form|input)$| (?:href|src|background|on\\w+)=");
  QStringList open;
  qsizetype end = page.HTML.indexOf("</style>") + 8;
  for (auto each = tag.globalMatch(page.HTML, end); each.hasNext();) {
    const auto match = each.next();
    const QString name = match.captured(2);
    Require(!QStringView(page.HTML).mid(end, match.capturedStart() - end).contains('<'), "all tags are well formed");
    end = match.capturedEnd();
    Require(!forbidden.match(name).hasMatch(), "only tags for looks are left");
    for (const auto& found : reference.globalMatch(match.captured(3))) {
      const std::size_t count = found.captured(1) == "link" ? page.Links.size() : page.Pictures.size();
      Require(found.captured(2).toULongLong() < count, "a number stands for an address");
    }
    const QString others = match.captured(3).remove(reference).remove(value);
    Require(!forbidden.match(others).hasMatch(), "there are no other addresses");
    if (name == "br" || name == "hr" || name == "img") continue;
    if (match.capturedLength(1) == 0) open.append(name);
    Require(!open.isEmpty() && open.size() <= mostDepth, "elements are not deep");
    Require(match.capturedLength(1) == 0 || open.takeLast() == name, "elements end where they should");
  }
  Require(open.isEmpty(), "elements end");
  for (const auto& link : page.Links) Require(toolkit::IsForBrowser(link.URL), "links are for the browser");
}

void LayOut(const toolkit::qt::FilteredPage& page) {
  QTextDocument document;
  document.setResourceProvider([&](const QUrl& name) {
    Require(name.scheme() == "picture", "nothing but pictures is asked for");
    return QVariant(QImage(1, 1, QImage::Format_ARGB32));
  });
  document.setHtml(page.HTML);
  document.setTextWidth(width);
  Require(document.size().height() >= 0, "a page has a height");
}

}  // namespace

void FuzzOne(std::string_view input) {
  static const bool isOffScreen = qputenv("QT_QPA_PLATFORM", "offscreen");
  static int count = 0;
  static QGuiApplication application(count, nullptr);
  static HandPlatform platform;
  const std::string notes(input.substr(0, input.find('\0')));
  const std::string_view page = input.substr(std::min(notes.size() + 1, input.size()));
  platform.Requests.clear();
  platform.WhileWaiting = [&] { platform.LastRequest().Reply(200, page); };
  const std::string shown = Kaju::ProcessReleaseNotes(notes);
  Require(isOffScreen && !shown.empty(), "there is always something to show");
  Require(toolkit::IsUTF8(shown) || !toolkit::IsUTF8(notes), "a page is shown as UTF-8");
  Require(platform.Requests.size() <= 2, "without redirects, a page is asked for twice at most");
  const auto filtered = toolkit::qt::FilterPage(QString::fromStdString(shown), width);
  RequireHarmless(filtered);
  LayOut(filtered);
}
