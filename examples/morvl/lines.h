// Standard input line by line and standard output, both through buffers of fixed size.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Collects what is written to a file descriptor.
class Output {
  public:
    explicit Output(int descriptor);
    void Line(std::string_view text);
    // Writes out what has been collected. False once something couldn't be written.
    bool Flush();

  private:
    int descriptor_;
    bool isGood_ = true;
    std::string waiting_;
};

// The lines of a file descriptor, without their ends ("\n" or "\r\n") and without a byte order mark.
class Lines {
  public:
    // A longer line is cut, and told as such: memory doesn't grow with the input.
    static constexpr size_t kLongest = 65536;

    // Before it waits for more input, what has been written so far is flushed: a person or a program at the other end
    // sees the answers.
    Lines(int descriptor, Output* output);

    // The next line; false at the end and where reading fails.
    bool Next(std::string* line);
    bool WasCut() const { return wasCut_; }
    bool Failed() const { return failed_; }
    uint64_t Number() const { return number_; }  // of the last line, from 1

  private:
    bool Fill();
    void Take(std::string* line, std::string_view piece);

    int descriptor_;
    Output* output_;
    std::vector<char> buffer_;
    std::string_view left_;  // of the buffer
    uint64_t number_ = 0;
    bool wasCut_ = false;
    bool failed_ = false;
};
