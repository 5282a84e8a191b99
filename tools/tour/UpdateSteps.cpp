#include <memory>

#include <QDir>

#include "shell/App.h"
#include "tour/Conditions.h"
#include "tour/Tours.h"
#include "update/check/UpdateChecker.h"
#include "update/check/Versions.h"
#include "update/install/UpdateWindowPresenter.h"

namespace tour {
namespace {

using namespace std::chrono_literals;

const QString notes = "hvNotes";
const QString ok = "btnOK";
const QString cancel = "btnCancel";
const QString skip = "btnSkipVersion";
const QString message = "lblInstallMessage";
const QString bar = "pbProgress";
const QString versions = "pumUpdates";
const QString typedInto = "txtHostname";

QString Newer() { return QString::fromStdString(Publisher::NewerVersion()); }
QString Older() { return QString::fromStdString(Publisher::OlderVersion()); }
QString Running() { return QString::fromStdString(Kaju::AppVersionString()); }

QString ManyOffered() {
  return "You have version " + Running() + " and there are multiple updates available. Install one?";
}
QString OneOffered() {
  return "You have version " + Running() + ". Would you like to install version " + Older() + "?";
}

/// The checks of one tour, each as the program makes it at its start.
class Checks {
 public:
  explicit Checks(Publisher& publisher) : publisher_(publisher) {}

  [[nodiscard]] Inputs Make() const {
    return {{[] { return QString(); },
             [latest = latest_, &publisher = publisher_] {
               const auto checker =
                   std::make_shared<Kaju::UpdateChecker>(App::Current().KajuPrefFolder(), "Kaju_Preferences",
                                                         std::make_shared<Kaju::UpdateWindowPresenter>());
               checker->AllowedInteraction = Kaju::UpdateChecker::kAllowUpdateWindow;
               checker->ServerPublicRSAKey = publisher.PublicKey();
               checker->UpdateURL = publisher.UpdateURL();
               *latest = checker;
               checker->Execute();
             }}};
  }
  [[nodiscard]] Inputs HurryUp() const {
    return {{[] { return QString(); }, [&publisher = publisher_] { publisher.HurryUp(); }}};
  }
  /// The window is closed, all that was fetched is gone, and what was skipped is remembered.
  [[nodiscard]] Condition Over() const {
    return [latest = latest_, closed = WindowsOpen(updateTitle, 0), tidy = NothingIn(QDir::tempPath())]() -> QString {
      for (const Condition& condition : {closed, tidy}) {
        if (QString wrong = condition(); !wrong.isEmpty()) return wrong;
      }
      return latest->expired() ? QString() : QStringLiteral("the check is still held");
    };
  }

 private:
  Publisher& publisher_;
  std::shared_ptr<std::weak_ptr<Kaju::UpdateChecker>> latest_ = std::make_shared<std::weak_ptr<Kaju::UpdateChecker>>();
};

Step ChooseStep(const QString& version, Qt::Key direction, const QString& text, const QString& picture = {}) {
  return {"the version " + version + " is chosen, and its notes come",
          Click(versions) + Key(direction) + Key(Qt::Key_Return),
          {Says(versions, version), SaysWith(notes, text), PicturesShown(notes), Says("lblSecondary", ManyOffered())},
          picture};
}

Step DownloadStep(const QString& picture = {}) {
  return {"Install Update downloads: the bar moves, and the only button that works is Stop",
          Click(ok),
          {Says(message, "Downloading..."), PartlyDone(bar), Disabled({ok, versions}), Says(cancel, "Stop"),
           Enabled({cancel}), Hidden(skip)},
          picture};
}

Step ReadyStep(const Checks& checks) {
  return {"when the file is unpacked, only the press that installs it is missing",
          checks.HurryUp(),
          {Says(message, "Ready to install"), Hidden(bar), Says(ok, "Quit & Install"), Says(cancel, "Cancel"),
           Enabled({ok, cancel})},
          "update-ready"};
}

Step CorruptedStep(const Checks& checks) {
  return {"a file that is not the one that was signed is told as corrupted",
          checks.HurryUp(),
          {Says(message, "The downloaded file appears to be corrupted."), Hidden(bar), Disabled({ok}), Hidden(skip),
           Says(cancel, "Try Later"), Enabled({cancel})},
          "update-corrupted"};
}

Step CheckStep(const QString& what, const Checks& checks) {
  return {what,
          checks.Make() + BringToFront(updateTitle),
          {WindowsOpen(updateTitle, 1), Says(versions, Newer()), PicturesShown(notes)}};
}

Step CloseStep(const QString& what, const Inputs& inputs, const Checks& checks) {
  return {what + " closes the window, and leaves nothing behind", inputs, {checks.Over(), NoMessage()}};
}

Steps OfferSteps(const Checks& checks) {
  return {
      {"an offer comes up while the user types, and leaves the keyboard where it is",
       Fill(typedInto, "half a ") + checks.Make() + Keys("name"),
       {WindowsOpen(updateTitle, 1), HasKeyboard(typedInto), Says(typedInto, "half a name")}},
      {"the window shows the newest version, with its picture and its notes",
       BringToFront(updateTitle),
       {Says("lblMain", "A new version of Corvane is available!"), Says("lblSecondary", ManyOffered()),
        Says(versions, Newer()), SaysWith(notes, "A year of listening"), PicturesShown(notes),
        Enabled({ok, cancel, skip, versions}), Hidden(message), Hidden(bar)},
       "update-offer"},
      {"Tab reaches every control, in their order",
       Click(notes) + TabThrough({notes, notes, ok, cancel, skip, versions}),
       {HasKeyboard(notes)}},
      {"the menu shows the versions", Click(versions), {MenuOpen(versions)}, "update-versions"},
      {"Escape closes it, and nothing else", Key(Qt::Key_Escape), {Says(versions, Newer())}},
      ChooseStep(Older(), Qt::Key_Down, "Small repairs", "update-older"),
      {"a link in the notes leads nowhere",
       ClickLink(notes, "manual"),
       {Throughout(300ms, SaysWith(notes, "Small repairs")), WindowsOpen(updateTitle, 1), NoMessage()}},
      ChooseStep(Newer(), Qt::Key_Up, "A year of listening"),
  };
}

}  // namespace

Steps UpdateSteps(Publisher& publisher) {
  const Checks checks(publisher);
  Steps steps = OfferSteps(checks);
  const Steps more{
      DownloadStep("update-downloading"),
      ReadyStep(checks),
      CloseStep("Cancel", Click(cancel), checks),
      CheckStep("the next check offers the same again", checks),
      ChooseStep(Older(), Qt::Key_Down, "Small repairs"),
      DownloadStep(),
      CorruptedStep(checks),
      CloseStep("Try Later", Click(cancel), checks),
      CheckStep("and so does the next", checks),
      {"Skip Version takes the newer one away",
       Click(skip),
       {Says(versions, Older()), Says("lblSecondary", OneOffered()), SaysWith(notes, "Small repairs")}},
      DownloadStep(),
      CloseStep("Stop in the middle of a download", Click(cancel), checks),
      {"a skipped version does not come again, and a single one needs no menu",
       checks.Make() + BringToFront(updateTitle),
       {Says("lblSecondary", OneOffered()), SaysWith(notes, "Small repairs"), Hidden(versions), Hidden("lblVersions")},
       "update-single"},
      CloseStep("Escape", Key(Qt::Key_Escape), checks),
      {"the field that was typed into is emptied", Fill(typedInto, ""), {Says(typedInto, "")}},
  };
  steps.insert(steps.end(), more.begin(), more.end());
  return steps;
}

Steps UpdatePictureSteps(Publisher& publisher) {
  const Checks checks(publisher);
  Step offer = CheckStep("an offer comes", checks);
  offer.picture = "update-offer";
  return {
      offer,
      DownloadStep("update-downloading"),
      ReadyStep(checks),
      CloseStep("Cancel", Click(cancel), checks),
      CheckStep("it comes again", checks),
      ChooseStep(Older(), Qt::Key_Down, "Small repairs"),
      DownloadStep(),
      CorruptedStep(checks),
      CloseStep("Try Later", Click(cancel), checks),
  };
}

}  // namespace tour
