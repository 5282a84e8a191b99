#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <sys/types.h>

#include <boost/json.hpp>
#include <httplib.h>

namespace panel_test {

/// The real corvane-panel as a child process. It ends with this object at the latest.
class PanelProgram {
 public:
  /// Starts it with these arguments, words and redirections as the shell reads them.
  explicit PanelProgram(const std::string& arguments);
  PanelProgram(const PanelProgram&) = delete;
  PanelProgram& operator=(const PanelProgram&) = delete;
  ~PanelProgram();

  /// What it prints before this character; all that it still prints until it has ended, by default.
  std::string Read(int until = EOF);
  void Send(int signal) const;
  void CloseStdin();
  /// Waits until it has ended. Its exit status, or less than 0 if a signal ended it.
  int Wait();

 private:
  std::FILE* output_ = nullptr;
  int stdin_ = -1;
  pid_t pid_ = 0;
};

/// A panel that listens on a free port of 127.0.0.1, and a client with one kept connection to it.
class Panel {
 public:
  explicit Panel(const std::string& arguments = "");

  struct Answer {
    int status = 0;  ///< 0: no reply came.
    boost::json::object body;
    std::size_t size = 0;
  };
  /// Posts `members` with the right credentials, which members of the same names replace.
  [[nodiscard]] Answer Call(const std::string& path, const boost::json::object& members = {}) const;
  [[nodiscard]] Answer Post(const std::string& path, const std::string& body) const;

  [[nodiscard]] std::unique_ptr<httplib::SSLClient> NewClient() const;

  PanelProgram program;
  int port = 0;
  std::unique_ptr<httplib::SSLClient> client;
};

}  // namespace panel_test
