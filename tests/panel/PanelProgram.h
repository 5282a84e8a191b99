#pragma once

#include <memory>
#include <string>
#include <sys/types.h>
#include <vector>

#include <boost/json.hpp>
#include <httplib.h>

namespace panel_test {

/// The real corvane-panel as a child process. It ends with this object at the latest.
class PanelProgram {
 public:
  /// Starts it with these arguments.
  explicit PanelProgram(const std::vector<std::string>& arguments);
  PanelProgram(const PanelProgram&) = delete;
  PanelProgram& operator=(const PanelProgram&) = delete;
  ~PanelProgram();

  /// The next line of its output without its end; empty if the output has ended.
  [[nodiscard]] std::string ReadLine() const;
  void Send(int signal) const;
  void CloseStdin();
  /// Waits until it has ended. Its exit status, or less than 0 if a signal ended it.
  int Wait();
  /// What it wrote until its end, as far as it was not read.
  [[nodiscard]] std::string Output() const;
  [[nodiscard]] std::string ErrorOutput() const;

 private:
  pid_t pid_ = 0;
  int stdin_ = -1;
  int stdout_ = -1;
  int stderr_ = -1;
};

/// A panel that listens on a free port of 127.0.0.1, and a client with one kept connection to it.
class Panel {
 public:
  explicit Panel(std::vector<std::string> arguments);

  struct Answer {
    int status = 0;  ///< 0: no reply came.
    boost::json::object body;
  };
  /// Posts `members` with the right credentials, which members of the same names replace.
  Answer Call(const std::string& path, const boost::json::object& members = {}) const;
  Answer Post(const std::string& path, const std::string& body) const;

  [[nodiscard]] std::unique_ptr<httplib::SSLClient> NewClient() const;

  PanelProgram program;
  int port = 0;
  std::unique_ptr<httplib::SSLClient> client;
};

}  // namespace panel_test
