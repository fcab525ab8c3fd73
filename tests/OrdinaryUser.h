// An ordinary user: one who may not write what is read-only, as root may.
#pragma once

#include <QDirIterator>
#include <QFile>
#include <QString>
#include <QtGlobal>

#include <sys/prctl.h>
#include <sys/types.h>
#include <unistd.h>

/// While it lives, this process is nobody's where it was root's. The folder, with all that it holds, goes to
/// nobody for good; the permissions of its files hold then, for this process as for any user's.
class OrdinaryUser
{
public:
    explicit OrdinaryUser(const QString& folder) : m_wasRoot(::geteuid() == 0)
    {
        if (!m_wasRoot)
            return;
        Give(folder);
        QDirIterator entries(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                             QDirIterator::Subdirectories);
        while (entries.hasNext())
            Give(entries.next());
        // The real ones, too: with them the system answers whether a file may be written. The saved ones
        // bring root back.
        if (::setresgid(kNobody, kNobody, 0) != 0 || ::setresuid(kNobody, kNobody, 0) != 0)
            qFatal("this process can't be nobody's");
        ::prctl(PR_SET_DUMPABLE, 1); // or it could not look at itself under /proc
    }
    ~OrdinaryUser()
    {
        if (m_wasRoot && (::setresuid(0, 0, 0) != 0 || ::setresgid(0, 0, 0) != 0))
            qFatal("this process can't be root's again");
        ::prctl(PR_SET_DUMPABLE, 1);
    }
    Q_DISABLE_COPY_MOVE(OrdinaryUser)

private:
    static constexpr uid_t kNobody = 65534;

    static void Give(const QString& name)
    {
        if (::lchown(QFile::encodeName(name).constData(), kNobody, kNobody) != 0)
            qFatal("%s can't be given to nobody", qPrintable(name));
    }

    bool m_wasRoot;
};
