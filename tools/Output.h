// Where commands print: on standard output and standard error, or into what waits for its turn.
#ifndef ZTXML_TOOLS_OUTPUT_H
#define ZTXML_TOOLS_OUTPUT_H

#include <cstddef>
#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>
#include <vector>

/// Standard output and standard error for the calling thread: what a job prints (see Jobs.h) comes
/// out in its turn.
std::ostream& Out();
std::ostream& Err();
/// Whether `to` is Err(), or std::cerr.
bool IsStandardError(const std::ostream& to);
/// Prints `text` on Out() as it is; on a terminal, which could take parts of it for commands, as by
/// EscapeControls.
void PrintText(std::string_view text);

/// What was printed on one stream without a break.
struct Printed {
  bool isError = false;
  std::string text;
};

/// Takes what is printed, as soon as there is much of it.
class PrintTaker {
 public:
  virtual void Take(std::vector<Printed>& printed, std::size_t bytes) = 0;

 protected:
  ~PrintTaker() = default;
};

/// While it lives, what its thread prints on Out() and Err() goes to a taker.
class Redirection {
 public:
  explicit Redirection(PrintTaker& taker);
  ~Redirection();
  Redirection(const Redirection&) = delete;
  Redirection& operator=(const Redirection&) = delete;

  /// Gives the taker what it has not got yet.
  void Finish();

 private:
  class Buffer : public std::streambuf {
   public:
    Buffer(Redirection& owner, bool isError) : m_Owner(owner), m_bError(isError) {}

   protected:
    int_type overflow(int_type c) override;
    std::streamsize xsputn(const char* text, std::streamsize size) override;

   private:
    Redirection& m_Owner;
    const bool m_bError;
  };

  void Add(bool isError, std::string_view text);

  PrintTaker& m_Taker;
  std::vector<Printed> m_Printed;
  std::size_t m_iBytes = 0;  // in it
  Buffer m_OutBuffer{*this, false};
  Buffer m_ErrBuffer{*this, true};
  std::ostream m_Out{&m_OutBuffer};
  std::ostream m_Err{&m_ErrBuffer};
  std::ostream* m_pOuterOut;
  std::ostream* m_pOuterErr;
};

#endif  // ZTXML_TOOLS_OUTPUT_H
