-- Ends connections of persons that hold up others for longer than $1 seconds, and those with more than $2
-- locks: the whole server shares one lock table. Returns how many were ended, and in each row an abandoned
-- prepared transaction, which would hold its locks forever, or null. Never touches an administrator of the
-- server.
WITH old AS (
    SELECT clock_timestamp() - make_interval(secs => $1) AS moment
),
person AS (
    SELECT rolname FROM pg_roles WHERE NOT rolsuper AND pg_has_role(oid, 'vrk_client', 'MEMBER')
),
held AS MATERIALIZED (
    SELECT pid, count(*) AS locks, bool_or(locktype = 'advisory') AS isAdvisory FROM pg_locks GROUP BY pid
),
ended AS MATERIALIZED (
    SELECT count(pg_terminate_backend(pid)) AS sessions
    FROM pg_stat_activity LEFT JOIN held USING (pid), old
    WHERE usename IN (SELECT rolname FROM person)
        AND (datname = current_database() AND state <> 'idle'
                AND (query_start < moment OR xact_start < moment
                    AND EXISTS (SELECT 1 FROM pg_locks
                        WHERE NOT granted AND pg_stat_activity.pid = ANY (pg_blocking_pids(pg_locks.pid))))
            OR isAdvisory AND state_change < moment
            OR locks > $2)
)
SELECT sessions, gid
FROM ended CROSS JOIN old
LEFT JOIN pg_prepared_xacts ON database = current_database() AND owner IN (SELECT rolname FROM person)
    AND prepared < moment
