#include "viewmodel/lists/DraggedItems.h"

#include <QDataStream>
#include <QIODevice>
#include <QMimeData>

QString DraggedCandidates::Type() {
    return QStringLiteral("application/x-velmarch-candidates");
}

QMimeData* DraggedCandidates::ToMime() const {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << list << texts;
    auto* data = new QMimeData;  // the drag owns it
    data->setData(Type(), bytes);
    return data;
}

std::optional<DraggedCandidates> DraggedCandidates::FromMime(const QMimeData& data) {
    DraggedCandidates dragged{};
    QDataStream stream(data.data(Type()));
    stream >> dragged.list >> dragged.texts;
    return data.hasFormat(Type()) && stream.status() == QDataStream::Ok ? std::optional(dragged)
                                                                        : std::nullopt;
}

QString DraggedLine::Type() {
    return QStringLiteral("application/x-velmarch-dependency");
}

QMimeData* DraggedLine::ToMime() const {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << path;
    auto* data = new QMimeData;
    data->setData(Type(), bytes);
    return data;
}

std::optional<DraggedLine> DraggedLine::FromMime(const QMimeData& data) {
    DraggedLine dragged;
    QDataStream stream(data.data(Type()));
    stream >> dragged.path;
    return data.hasFormat(Type()) && stream.status() == QDataStream::Ok ? std::optional(dragged)
                                                                        : std::nullopt;
}
