// Work over many things, divided among threads, with what it prints in order.
#ifndef ZTXML_TOOLS_JOBS_H
#define ZTXML_TOOLS_JOBS_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "Document.h"

inline constexpr int kMostJobs = 256;

/// How many threads may work at a time; 0 for as many as there are processors.
void SetJobs(std::size_t count);

/// Calls `work` for each number below `count` and returns the highest status that it returned.
/// Threads share the numbers; what is printed on Out() and Err(), and the first exception, come as
/// if one thread had taken them one after another. Little of it is held back: who is far ahead of
/// what is printed waits. `isShared` false asks for one thread. May be called by `work`; then those
/// threads are used that nothing keeps busy.
int InOrder(std::size_t count, const std::function<int(std::size_t)>& work, bool isShared = true);

/// The same over files, with progress; `work` gets the index of the path.
int ForFiles(const std::vector<std::string>& paths, const std::function<int(std::size_t)>& work);
/// The same over the documents of a file.
int ForDocuments(const std::vector<Document>& documents,
                 const std::function<int(std::size_t)>& work);
/// Does one thing, with progress.
int ForOne(const std::function<int()>& work);

#endif  // ZTXML_TOOLS_JOBS_H
