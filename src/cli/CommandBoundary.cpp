// SPDX-License-Identifier: GPL-3.0-or-later
#include "CommandBoundary.h"

#include "CliOutput.h"
#include "ExitCode.h"
#include "FaultExitCode.h"
#include "platform/Fault.h"
#include "platform/StorageError.h"

#include <exception>

namespace lorvane::cli {

namespace {

QString located(const QString& command, const QString& message, const QString& step,
                const QString& path)
{
    QString text = QStringLiteral("lorvane-cli ") + command + QStringLiteral(": ") + message;
    if (!step.isEmpty())
        text += QStringLiteral("\n  step: ") + step;
    if (!path.isEmpty())
        text += QStringLiteral("\n  file: ") + path;
    return text;
}

} // namespace

int runAtBoundary(const QString& command, const std::function<int()>& body)
{
    try {
        return body();
    } catch (const Fault& fault) {
        CliOutput::error(located(command, fault.message(), fault.step(), fault.path()));
        return exitCodeFor(fault);
    } catch (const StorageError& error) {
        CliOutput::error(located(command, error.detail(), QString(), error.path()));
        return exitCodeFor(error);
    } catch (const std::exception& error) {
        CliOutput::error(located(command, QString::fromLocal8Bit(error.what()), QString(), {}));
    } catch (...) {
        CliOutput::error(located(command, QStringLiteral("failed for an unknown reason"), {}, {}));
    }
    return Failure;
}

void rethrowNaming(const Fault& fault, const QString& files)
{
    if (!fault.path().isEmpty())
        throw fault;
    throw Fault(fault.kind(), fault.message(), fault.step(), files);
}

} // namespace lorvane::cli
