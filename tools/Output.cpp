#include "Output.h"

#include <iostream>
#include <unistd.h>

#include "Text.h"

namespace {

constexpr std::size_t kMuch = 1 << 16;

// Null for the process's own.
thread_local std::ostream* t_pOut = nullptr;
thread_local std::ostream* t_pErr = nullptr;

}  // namespace

std::ostream& Out() { return t_pOut ? *t_pOut : std::cout; }
std::ostream& Err() { return t_pErr ? *t_pErr : std::cerr; }
bool IsStandardError(const std::ostream& to) { return &to == &std::cerr || &to == t_pErr; }
void PrintText(std::string_view text) {
  static const bool isTerminal = isatty(STDOUT_FILENO);
  if (isTerminal) {
    Out() << EscapeControls(text);
  } else {
    Out() << text;
  }
}

Redirection::Redirection(PrintTaker& taker)
    : m_Taker(taker), m_pOuterOut(t_pOut), m_pOuterErr(t_pErr) {
  // What cannot be kept for want of memory must not be lost in silence.
  m_Out.exceptions(std::ios::badbit);
  m_Err.exceptions(std::ios::badbit);
  t_pOut = &m_Out;
  t_pErr = &m_Err;
}

Redirection::~Redirection() {
  t_pOut = m_pOuterOut;
  t_pErr = m_pOuterErr;
}

void Redirection::Finish() {
  m_Taker.Take(m_Printed, m_iBytes);
  m_Printed.clear();
  m_iBytes = 0;
}

void Redirection::Add(bool isError, std::string_view text) {
  if (m_Printed.empty() || m_Printed.back().isError != isError) m_Printed.push_back({isError, {}});
  m_Printed.back().text += text;
  m_iBytes += text.size();
  if (m_iBytes >= kMuch) Finish();
}

Redirection::Buffer::int_type Redirection::Buffer::overflow(int_type c) {
  if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
  const char character = traits_type::to_char_type(c);
  m_Owner.Add(m_bError, {&character, 1});
  return c;
}

std::streamsize Redirection::Buffer::xsputn(const char* text, std::streamsize size) {
  m_Owner.Add(m_bError, {text, static_cast<std::size_t>(size)});
  return size;
}
