#include "shell/App.h"
#include "shell/Product.h"
#include "tour/Conditions.h"
#include "tour/Tours.h"

namespace tour {
namespace {

using namespace std::chrono_literals;

Condition FormSays(const QString& host, const QString& user, const QString& password) {
  return [=]() -> QString {
    for (const Condition& condition :
         {Says("txtHostname", host), Says("txtUsername", user), Says("txtPassword", password)}) {
      if (QString wrong = condition(); !wrong.isEmpty()) return wrong;
    }
    return {};
  };
}

Steps OpeningSteps() {
  const QString version = QString::fromStdString("Version " + App::Current().DunmereVersion());
  return {
      {"the main window opens with its version, an empty list and an empty form",
       BringToFront(mainTitle),
       {WindowsOpen(mainTitle, 1), Says("labelVersion", version), Says("labelCopyright", product::copyright),
        Rows("listServers", 0), FormSays("", "", ""), Visible("Canvas1"), HasKeyboard("txtHostname")},
       "main-empty"},
      {"Tab reaches every control, in their order",
       TabThrough({"txtHostname", "txtUsername", "txtPassword", "btnAddServer", "listServers"}),
       {HasKeyboard("txtHostname")}},
  };
}

Steps IncompleteFormSteps(const Visit& visit) {
  return {
      {"Add Server with an empty form asks for the hostname",
       Click("btnAddServer"),
       {Message("You must provide your server hostname to continue.")},
       "message"},
      {"OK dismisses the message", PressInBox("OK"), {NoMessage(), Rows("listServers", 0)}},
      {"Add Server without a password asks for username and password",
       Fill("txtHostname", visit.host) + Fill("txtUsername", visit.user) + Click("btnAddServer"),
       {Message("You must provide both your username and password to continue.")}},
      {"Enter dismisses the message, and the form is kept",
       Key(Qt::Key_Return),
       {NoMessage(), FormSays(visit.host, visit.user, "")}},
  };
}

Steps RefusedFormSteps(const Visit& visit) {
  const QString wrong = "not " + visit.password;
  const QString nowhere = "no-such-server.invalid";
  return {
      {"a wrong password brings the service's own message",
       Fill("txtPassword", wrong) + Click("btnAddServer"),
       {Message("The username or the password is wrong.")}},
      {"Escape dismisses it; nothing was added and the form is kept",
       Key(Qt::Key_Escape),
       {NoMessage(), Rows("listServers", 0), FormSays(visit.host, visit.user, wrong)}},
      {"a server that cannot be found is named in the message",
       Fill("txtHostname", nowhere) + Click("btnAddServer"),
       {MessageWith("“" + nowhere + "”")},
       "message-unreachable",
       60s},
      {"OK dismisses it; nothing was added and the form is kept",
       PressInBox("OK"),
       {NoMessage(), Rows("listServers", 0), FormSays(nowhere, visit.user, wrong)}},
  };
}

}  // namespace

Steps MainWindowSteps(const Visit& visit) {
  Steps steps = OpeningSteps();
  for (const Steps& more : {IncompleteFormSteps(visit), RefusedFormSteps(visit)}) {
    steps.insert(steps.end(), more.begin(), more.end());
  }
  steps.push_back({"adds a server: its row appears and the form is cleared",
                   Fill("txtHostname", visit.host) + Fill("txtPassword", visit.password) + Click("btnAddServer"),
                   {Rows("listServers", 1), NoCellEmpty("listServers", 3), FormSays("", "", ""), NoMessage()},
                   "main"});
  return steps;
}

}  // namespace tour
