#include "update/install/ScriptText.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "resources/Resource.h"
#include "toolkit/RegEx.h"
#include "toolkit/RuntimeException.h"
#include "toolkit/Text.h"
#include "update/install/UpdateInitiater.h"

using toolkit::FolderItem;

namespace Kaju {
namespace {

using Values = std::vector<std::pair<std::string_view, std::string>>;

/// The template with that name, with line feeds as line breaks.
std::string Template(std::string_view name) {
  const auto bytes = resources::Find(name);
  return toolkit::ReplaceAll({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, "\r\n", "\n");
}

/// Replaces all placeholders by their values in one pass: a value that contains a placeholder, as the name of a folder
/// may, is not changed.
std::string Fill(std::string_view text, const Values& values) {
  std::string filled;
  while (!text.empty()) {
    const std::size_t mark = std::min(text.find("@@"), text.size());
    filled.append(text.substr(0, mark));
    text.remove_prefix(mark);
    const auto found =
        std::find_if(values.begin(), values.end(), [text](const auto& value) { return text.starts_with(value.first); });
    if (found != values.end()) {
      filled.append(found->second);
      text.remove_prefix(found->first.size());
    } else if (!text.empty()) {
      filled += text.front();
      text.remove_prefix(1);
    }
  }
  return filled;
}

Values BashValues(const ScriptInput& update, std::string_view newName, const FolderItem& newParent) {
  return {{"@@APP_NAME@@", UpdateInitiater::ShellQuote(update.Executable.Name())},
          {"@@APP_PARENT@@", UpdateInitiater::ShellPathQuote(update.Executable.Parent())},
          {"@@APP_VERSION@@", UpdateInitiater::ShellQuote(update.Version)},
          {"@@NEW_APP_NAME@@", UpdateInitiater::ShellQuote(newName)},
          {"@@NEW_APP_PARENT@@", UpdateInitiater::ShellPathQuote(newParent)},
          {"@@TEMP_FOLDER@@", UpdateInitiater::ShellPathQuote(update.TempFolder)},
          {"@@PID_FILE_PATH@@", UpdateInitiater::ShellPathQuote(update.PidFile)}};
}

/// In a batch file a literal "%" must be doubled.
std::string BatchText(std::string_view text) { return toolkit::ReplaceAll(text, "%", "%%"); }

std::string BatchPath(const FolderItem& item) { return BatchText(UpdateInitiater::ShellPathQuote(item)); }

Values BatchValues(const ScriptInput& update) {
  return {{"@@APP_NAME@@", BatchText(update.Executable.Name())},
          {"@@APP_PARENT@@", BatchPath(update.Executable.Parent())},
          {"@@APP_VERSION@@", BatchText(update.Version)},
          {"@@NEW_APP_NAME@@", BatchText(update.ReplacementExecutable)},
          {"@@NEW_APP_PARENT@@", BatchPath(update.Replacement)},
          {"@@TEMP_FOLDER@@", BatchPath(update.TempFolder)},
          {"@@DECOMPRESSED_FOLDER@@", BatchPath(update.Replacement.Parent())},
          {"@@PID_FILE_PATH@@", BatchPath(update.PidFile)}};
}

std::vector<std::string> Companions(const ScriptInput& update) {
  return UpdateInitiater::GetManifest(update.Replacement, update.ReplacementExecutable);
}

}  // namespace

std::string MacScript(const ScriptInput& input) {
  return Fill(Template("kaju_updater_mac"), BashValues(input, input.Replacement.Name(), input.Replacement.Parent()));
}

std::string LinuxScript(const ScriptInput& input) {
  const std::vector<std::string> companions = Companions(input);
  Values values = BashValues(input, input.ReplacementExecutable, input.Replacement);
  values.emplace_back("@@NEW_APP_OTHER_UB@@", std::to_string(std::ssize(companions) - 1));
  values.emplace_back("@@NEW_APP_OTHER_ARRAY@@", UpdateInitiater::ArrayToShellScript(companions, "NEW_APP_OTHER_NAME"));
  return Fill(Template("kaju_updater_linux"), values);
}

std::string WindowsScript(const ScriptInput& input) {
  const std::string text = Template("kaju_updater_windows");
  const auto found = toolkit::RegEx("(?sU)REM BEGIN PSEUDO-ARRAY(.+)REM END PSEUDO-ARRAY").Search(text);
  if (!found) throw toolkit::RuntimeException("The install script has no place for the companions.");
  const std::string_view whole = found->SubExpression(0);
  const auto start = static_cast<std::size_t>(whole.data() - text.data());

  Values values = BatchValues(input);
  std::string script = Fill(std::string_view(text).substr(0, start), values);
  for (const std::string& name : Companions(input)) {
    Values named = values;
    named.emplace_back("@@OTHER_NAME@@", BatchText(name));
    named.emplace_back("@@OTHER_NAME_WO_SPACES@@", BatchText(toolkit::ReplaceAll(name, " ", "_")));
    script.append(Fill(found->SubExpression(1), named));
  }
  script.append(Fill(std::string_view(text).substr(start + whole.size()), values));
  return toolkit::ReplaceAll(script, "\n", "\r\n");
}

}  // namespace Kaju
