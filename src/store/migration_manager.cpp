#include "store/migration_manager.h"

#include "family_migration.h"
#include "file_bytes.h"
#include "migration_plan.h"
#include "store_texts.h"

#include <utility>

namespace lineara {

MigrationManager::MigrationManager(ModelVersion source, ModelVersion destination)
    : source_(std::move(source)), destination_(std::move(destination))
{}

Outcome<Done> MigrationManager::migrateStore(const QString& from, const QString& to, const MappingModel& mapping,
                                             const store::FileCalls& calls, const Progress& progress) const
{
    const auto refused = [&from](const Failure& reason) {
        return Failure{StoreTexts::tr("“%1” can't be brought up to date: %2").arg(from, reason.message)};
    };
    const auto plan = store::MigrationPlan::make(source_, destination_, mapping);
    if (plan.failed())
        return refused(plan.failure());
    const auto bytes = store::readTextFile(from);
    if (bytes.failed())
        return refused(bytes.failure());
    const std::string_view text(bytes.value().constData(), static_cast<std::size_t>(bytes.value().size()));
    Outcome<Done> migrated = Done{};
    auto replaced = store::replaceFile(
        to,
        [&](store::ByteSink sink) {
            store::XmlWriter out(std::move(sink));
            migrated = store::migrateText(text, plan.value(), out, progress);
            return migrated && out.finish();
        },
        calls);
    return migrated.failed() ? refused(migrated.failure()) : replaced;
}

} // namespace lineara
