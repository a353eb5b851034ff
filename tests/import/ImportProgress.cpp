#include "ImportProgress.h"

#include "support/WorkTime.h"

#include <thread>

ImportProgress::ImportProgress(const QString& path) : file_(path) {
    const bool isNew = !file_.exists();
    if (!file_.open(QIODevice::ReadWrite) || (isNew && !file_.resize(sizeof(Progress)))) {
        qFatal("%s can't be shared", qPrintable(path));
    }
    progress_ = reinterpret_cast<Progress*>(file_.map(0, sizeof(Progress)));
    if (isNew) {
        Clear();
    }
}

void ImportProgress::Clear() const {
    progress_->writes = 0;
    progress_->committed = 0;
    progress_->holdAfter = Never;
    progress_->isHeld = false;
}

std::vector<Done> ImportProgress::AllDone() const {
    return {progress_->done, progress_->done + Writes()};
}

void ImportProgress::HoldAfter(size_t writes) const {
    Clear();
    progress_->holdAfter = writes;
}

void ImportProgress::AddWrite(const TracedWrite& write) const {
    if (progress_->writes < Room) {
        progress_->done[progress_->writes] = {write.doneAt, WorkedNanoseconds(), WaitedForCoreNanoseconds()};
        ++progress_->writes;
    }
}

void ImportProgress::AddCommit() const {
    progress_->committed = progress_->writes.load();
    while (progress_->writes >= progress_->holdAfter) {
        progress_->isHeld = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}
