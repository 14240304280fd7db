#pragma once

#include <string>

namespace quillbox {

/// The progress board: a caption, lines of text below one another, and the progress of work whose
/// length is known. While the work runs, window events are handled but input is not.
class Board {
 public:
  virtual ~Board() = default;

  virtual void open(const std::string& caption) = 0;
  virtual void setBoardCaption(const std::string& caption) = 0;
  virtual void clear() = 0;

  /// Prints a line (UTF-8). However many lines are printed, the board is repainted only as often as
  /// the eye can follow; the last line is always shown in the end.
  virtual void print(const std::string& line) = 0;

  /// `done` of `total` steps are done; a total of 0 is work of unknown length.
  virtual void progress(int done, int total) = 0;

  /// The result of the work, for as long as the board stays open after it.
  virtual void tell(const std::string& /*status*/) {}

  virtual void close() = 0;
};

/// Keeps the board open for as long as the work lasts, however the work ends.
class OpenBoard {
 public:
  OpenBoard(Board& board, const std::string& caption) : board_(board) { board_.open(caption); }
  OpenBoard(const OpenBoard&) = delete;
  OpenBoard& operator=(const OpenBoard&) = delete;
  ~OpenBoard() { board_.close(); }

 private:
  Board& board_;
};

/// A board that shows nothing.
class NoBoard : public Board {
 public:
  void open(const std::string& /*caption*/) override {}
  void setBoardCaption(const std::string& /*caption*/) override {}
  void clear() override {}
  void print(const std::string& /*line*/) override {}
  void progress(int /*done*/, int /*total*/) override {}
  void close() override {}
};

}  // namespace quillbox
