-- Keeps the search index up to date with the records. Recreated at every step of the schema.

-- Lower case and "е" for "ё", for any locale of the database. A locale without Russian is slower.
CREATE FUNCTION vrk_folded(plain text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT translate(CASE WHEN lower('ЖÀ' COLLATE "default") = 'жà' THEN lower(plain COLLATE "default") ELSE translate(plain,
        'ABCDEFGHIJKLMNOPQRSTUVWXYZ'
        'АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯЁЀЂЃЄЅІЇЈЉЊЋЌЍЎЏҐ'
        'ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ',
        'abcdefghijklmnopqrstuvwxyz'
        'абвгдежзийклмнопрстуфхцчшщъыьэюяёѐђѓєѕіїјљњћќѝўџґ'
        'àáâãäåæçèéêëìíîïðñòóôõöøùúûüýþ') END, 'ё', 'е');
$$;

-- The visible text of markup, as needed for words: entities separate them.
CREATE FUNCTION vrk_visible(html text) RETURNS text LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
    IF strpos(html, '<') > 0 THEN
        html := regexp_replace(html, '<!--.*?-->', ' ', 'g');
        html := regexp_replace(html, '<(head|style|script|title)(?:\s[^<>]*?)?>.*?</\1\s*?>', ' ', 'gi');
        html := regexp_replace(html, '</?(?:a|b|strong|i|em|u|ins|s|strike|del|sup|sub|span|font)(?:[^<>a-z0-9][^<>]*)?>',
                               '', 'gi');
        html := regexp_replace(html, '</?[a-z][^<>]*>|<[!?][^<>]*>', ' ', 'gi');
    END IF;
    IF strpos(html, '&') > 0 THEN
        html := regexp_replace(html, '&shy;', '', 'gi');
        html := regexp_replace(html, '&[#a-z0-9]+;', ' ', 'gi');
    END IF;
    RETURN replace(html, U&'\00AD', '');
END $$;

-- The stems of the words, each once.
CREATE FUNCTION vrk_stems(plain text, most integer) RETURNS text[] LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT coalesce(array_agg(DISTINCT coalesce((ts_lexize('public.vrk_russian', cut))[1], cut)), '{}')
    FROM (SELECT left(word, 64) AS cut
          FROM regexp_split_to_table(vrk_folded(plain),
                                     '[^0-9a-z\u00df-\u00f6\u00f8-\u00ff\u0430-\u0481\u048a-\u04ff]+')
               WITH ORDINALITY AS words (word, place)
          WHERE word <> '' ORDER BY place LIMIT most) AS first;
$$;

CREATE FUNCTION vrk_words(html text) RETURNS text[] LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT vrk_stems(vrk_visible(coalesce(html, '')), 5000);
$$;

-- The same for the parameters that name equipment.
CREATE FUNCTION vrk_equipment(html text) RETURNS text[] LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT vrk_stems(coalesce(string_agg(vrk_visible(shown[1]), ' ' ORDER BY place), ''), 500)
    FROM regexp_matches(coalesce(html, ''),
                        '<a\s[^<>]*?href\s*?=\s*?"parameter:name=(?:substation|line|bay|equipmentname|equipmentpath)'
                        '(?:;[^<>"]*?)?"[^<>]*?>(.*?)(?:</a\s*?>|(?=<a[\s>])|$)', 'gi')
         WITH ORDINALITY AS parameters (shown, place);
$$;

-- The content of the row for each record.
CREATE FUNCTION vrk_search_words(html text, departmentKey text, workerKey text, status integer) RETURNS tsvector
    LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT array_to_tsvector(vrk_words(html)
        || ARRAY(SELECT 'e:' || stem FROM unnest(vrk_equipment(html)) AS stem)
        || ARRAY['record:', 'd:' || coalesce(departmentKey, ''), 'a:' || coalesce(workerKey, ''),
                 's:' || coalesce(status, 0)]);
$$;
CREATE VIEW SearchSource AS
    SELECT R.KeyLink AS recordKey, coalesce(R.recordTime, 0) AS recordTime,
           vrk_search_words(R.html, W.DepartmentKey, R.WorkerKey, R.status) AS words
    FROM LogbookRecords AS R LEFT JOIN LogbookWorkshifts AS W ON W.KeyLink = R.ShiftKey;

CREATE FUNCTION vrk_search_record() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER
    SET search_path = pg_catalog, public, pg_temp AS $$
BEGIN
    IF TG_OP = 'DELETE' THEN
        DELETE FROM RecordSearch WHERE recordKey = OLD.KeyLink;
        RETURN NULL;
    END IF;
    IF TG_OP = 'UPDATE' AND NEW.html IS NOT DISTINCT FROM OLD.html AND NEW.status IS NOT DISTINCT FROM OLD.status
       AND NEW.recordTime IS NOT DISTINCT FROM OLD.recordTime AND NEW.ShiftKey IS NOT DISTINCT FROM OLD.ShiftKey
       AND NEW.WorkerKey IS NOT DISTINCT FROM OLD.WorkerKey THEN
        RETURN NULL;
    END IF;
    INSERT INTO RecordSearch (recordKey, recordTime, words)
    SELECT recordKey, recordTime, words FROM SearchSource WHERE recordKey = NEW.KeyLink
    ON CONFLICT (recordKey) DO UPDATE SET recordTime = excluded.recordTime, words = excluded.words;
    RETURN NULL;
END $$;
CREATE TRIGGER Y_Search AFTER INSERT OR UPDATE OR DELETE ON LogbookRecords
    FOR EACH ROW EXECUTE FUNCTION vrk_search_record();
