#pragma once

/// Pieces of SQL texts about metadata_zelbox_filemessage: all columns in the order of a reply's fields, and
/// the topics that are about documents.
#define ZEL_MESSAGE_COLUMNS                                                                                  \
    "fileId, operatorId, time, read, trayRead, recentRead, topic, type, messageId, title, content, "         \
    "operatorName, "                                                                                         \
    "fileName, groupId, category, linkId, extra"
#define ZEL_FAMILY "topic IN ('zel.file', 'zel.link', 'zel.link.local')"
