#include "BackendName.h"

#include "BackendVersions.h"
#include "TestRegistry.h"

#include <QtTest>

#include <array>
#include <cerrno>
#include <cstddef>

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

const QLatin1String wanted("OKTAVO3");

/// From here on the kernel answers every try to read memory by its way with this error. For child processes.
bool refuseGuardedReading(int error)
{
    std::array<sock_filter, 4> rules{{
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_process_vm_readv, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | static_cast<unsigned>(error)),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    }};
    const sock_fprog program{static_cast<unsigned short>(rules.size()), rules.data()};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

enum class Found : int { Named, NotNamed, CannotRefuse };

/// What a process finds in which the guarded reading is refused.
Found foundWhenRefused(int error, const BackendVersions &versions)
{
    const pid_t child = fork();
    if (child == 0) {
        if (!refuseGuardedReading(error))
            _exit(int(Found::CannotRefuse));
        _exit(int(isBackendNamed(&versions, wanted) ? Found::Named : Found::NotNamed));
    }
    int status = -1;
    if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status))
        return Found::CannotRefuse;
    return static_cast<Found>(WEXITSTATUS(status));
}

} // namespace

class BackendNameTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldKnowTheExactNameOnly_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isIt");
        QTest::newRow("the name") << "OKTAVO3" << true;
        QTest::newRow("other case") << "Oktavo3" << false;
        QTest::newRow("other at the begin") << "0KTAVO3" << false;
        QTest::newRow("other at the end") << "OKTAVO2" << false;
        QTest::newRow("longer") << "OKTAVO3 " << false;
        QTest::newRow("shorter") << "OKTAVO" << false;
        QTest::newRow("empty") << QString() << false;
    }

    void shouldKnowTheExactNameOnly()
    {
        QFETCH(QString, name);
        BackendVersions versions;
        versions.backendName = name;
        QTEST(isBackendNamed(&versions, wanted), "isIt");
    }

    void shouldFindNoNameWithoutARecord() { QVERIFY(!isBackendNamed(nullptr, wanted)); }

    void shouldFindNoNameBehindARecordOfNumbers_data()
    {
        QTest::addColumn<quint64>("behindTheNumbers");
        QTest::newRow("nothing") << quint64(0);
        QTest::newRow("a number") << quint64(7);
        QTest::newRow("no address") << ~quint64(0);
    }

    void shouldFindNoNameBehindARecordOfNumbers()
    {
        QFETCH(quint64, behindTheNumbers);
        struct {
            std::array<int, 6> numbers;
            quint64 next;
        } record{{0, 0, 0, 1, 24, -1}, behindTheNumbers};
        QVERIFY(!isBackendNamed(reinterpret_cast<const BackendVersions *>(&record), wanted));
    }

    void shouldFindNoNameAtTheEndOfTheMemory()
    {
        const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        void *pages = mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        QVERIFY(pages != MAP_FAILED);
        auto *behind = static_cast<char *>(pages) + page;
        QCOMPARE(mprotect(behind, page, PROT_NONE), 0);
        const char *record = behind - 6 * sizeof(int);
        QVERIFY(!isBackendNamed(reinterpret_cast<const BackendVersions *>(record), wanted));
        munmap(pages, 2 * page);
    }

    void shouldReadTheNameDirectlyWhereTheSystemRefuses_data()
    {
        QTest::addColumn<int>("error");
        QTest::newRow("not permitted") << EPERM;
        QTest::newRow("not known") << ENOSYS;
    }

    void shouldReadTheNameDirectlyWhereTheSystemRefuses()
    {
        QFETCH(int, error);
        BackendVersions versions;
        versions.backendName = wanted;
        QCOMPARE(foundWhenRefused(error, versions), Found::Named);
        versions.backendName = QStringLiteral("OKTAVO4");
        QCOMPARE(foundWhenRefused(error, versions), Found::NotNamed);
    }
};

ROOM_TEST_CLASS(BackendNameTest)
#include "BackendNameTest.moc"
