#include "ModelDisk.h"

#include <cstring>

namespace engine::jet {

namespace {

void PutBytes(QByteArray& file, qsizetype at, const QByteArray& bytes) {
    if (file.size() < at + bytes.size()) {
        file.append(at + bytes.size() - file.size(), '\0');
    }
    file.replace(at, bytes.size(), bytes);
}

void SetSize(QByteArray& file, qsizetype size) {
    file = file.size() > size ? file.left(size) : file + QByteArray(size - file.size(), '\0');
}

class ModelFile : public DiskFile {
public:
    ModelFile(ModelDisk& disk, std::shared_ptr<ModelDisk::File> file) : disk_(disk), file_(std::move(file)) {}

    std::uint64_t Size() override { return static_cast<std::uint64_t>(file_->bytes.size()); }

    void Read(std::uint64_t at, std::span<std::uint8_t> bytes) override {
        if (at + bytes.size() > Size()) {
            throw Error(ErrorNumber::DiskError, QStringLiteral("Disk error: read behind the end."));
        }
        std::memcpy(bytes.data(), file_->bytes.constData() + at, bytes.size());
    }

    void Write(std::uint64_t at, std::span<const std::uint8_t> bytes) override {
        const bool isCut = disk_.Count();
        const QByteArray written(reinterpret_cast<const char*>(bytes.data()),
                                 static_cast<qsizetype>(isCut ? bytes.size() / 2 / 512 * 512 : bytes.size()));
        PutBytes(file_->bytes, static_cast<qsizetype>(at), written);
        file_->written.emplace_back(static_cast<qsizetype>(at), written);
        StopIf(isCut);
        if (disk_.afterWrite) {
            disk_.afterWrite(*file_);
        }
    }

    void Resize(std::uint64_t size) override {
        StopIf(disk_.Count());
        SetSize(file_->bytes, static_cast<qsizetype>(size));
        file_->written.emplace_back(-1, QByteArray::number(static_cast<qulonglong>(size)));
    }

    void Sync() override {
        StopIf(disk_.Count());
        file_->synced = file_->bytes;
        file_->written.clear();
    }

private:
    static void StopIf(bool isStopped) {
        if (isStopped) {
            throw ModelDisk::Stopped();
        }
    }

    ModelDisk& disk_;
    std::shared_ptr<ModelDisk::File> file_;
};

}  // namespace

std::unique_ptr<DiskFile> ModelDisk::Open(const QString& path) {
    if (!files.contains(path)) {
        throw Error(ErrorNumber::DiskError, QStringLiteral("Disk error: '%1' isn't there.").arg(path));
    }
    return std::make_unique<ModelFile>(*this, files[path]);
}

std::unique_ptr<DiskFile> ModelDisk::OpenOrMake(const QString& path, const QString& /*permissionsOf*/) {
    if (!files.contains(path)) {
        Count();
        files[path] = std::make_shared<File>();
    }
    return Open(path);
}

bool ModelDisk::Count() {
    const int operation = operations++;
    if (failAt && operation >= *failAt && operation < failUntil) {
        throw Error(failure, QStringLiteral("Disk error: this one was to fail."));
    }
    if (stopAt && operation > *stopAt) {
        throw Stopped();
    }
    return stopAt && operation == *stopAt;
}

void ModelDisk::CutPower(const std::function<bool()>& isDone) {
    for (const auto& file : std::as_const(files)) {
        for (const auto& [at, bytes] : file->written) {
            if (!isDone()) {
                continue;
            }
            if (at < 0) {
                SetSize(file->synced, bytes.toLongLong());
            } else {
                PutBytes(file->synced, at, bytes);
            }
        }
        file->bytes = file->synced;
        file->written.clear();
    }
}

}  // namespace engine::jet
