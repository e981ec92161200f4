#include "Source/Guidance/Kinds/KindTable.hpp"

namespace orivanta {

namespace {

using enum PlaceKind;

// Each row lists words in English, German, French, Spanish, Japanese, Korean and Arabic.
constexpr KindRow rows[] = {
    // Words that contain a word of a later row.
    {other,
     "_fire safety,_fire ext,brandschutz,securite incendie,consigne de securite,消防,소방,السلامة "
     "من "
     "الحريق,_vending,_automaten_,distributeurs automatiques,distributeur "
     "automatique,expendedora,自動販売機,"
     "자판기,آلات البيع,_drinking water,_drinking f,trinkwasser,eau potable,agua "
     "potable,水飲ミ,음수대,"
     "مياه الشرب,_staff only,_private_,nicht offentlich,acces reserve,関係者"},
    {shop,
     "_toiletr,トイレタリ,_jeux et j,_health and b,_gesundheit und s,_sante et b,美容 健康,الصحة "
     "والجمال,_salon de "
     "beaute"},
    {service,
     "_travel a,reiseburo,agence de voyage,agences de voyage,agencia de "
     "viaje,旅行代理,여행사,وكالات "
     "سفر,_rental,verleih,_location_,alquiler,レンタル,대여,تأجير,_post_,_post "
     "o,postamt,postfiliale,"
     "_poste_,_correos,郵便,우체국,بريد"},
    {shop, "_sport and o,_sport und f,_sport et p,スポーツ アウトドア,رياضة ورحلات"},

    // Between floors.
    {lift,
     "_lift_,_lifts_,_elevator,aufzug,aufzuge,fahrstuhl,ascenseur,ascensor,エレベータ,"
     "昇降機,엘리베이터,승강기,مصعد,مصاعد"},
    {escalator,
     "escalator,rolltreppe,fahrsteig,fahrtreppe,tapis roulant,trottoir roulant,escalera mecanica,"
     "escaleras mecanicas,moving w,travelator,エスカレータ,動ク歩道,에스컬레이터,무빙워크,سلالم "
     "متحركة,سلم متحرك,ممرات متحركة"},
    {stairs,
     "_stair,_steps_,treppe,escalier,escalera,階段,계단,_درج,_الدرج,أدراج,سلالم,between "
     "floors,zwischen den "
     "etagen,entre les etages,階ノ移動,بين الطوابق,vertikale v,circulations v,上下移動,수직 이동"},
    {ramp, "_ramp_,_ramps_,_rampe,_rampa,スロープ,경사로,منحدر"},

    // Toilets and care.
    {toilet,
     "toilet,restroom,washroom,_wc_,_wcs_,lavatory,lavatories,bathroom,_shower,_dusche,_douche,"
     "sanitaires,_bano_,_banos_,_aseo,_ducha,トイレ,オ手洗,化粧室,便所,シャワー,화장실,샤워,"
     "دورات المياه,دورة مياه,دورات مياه,مرحاض,حمام"},
    {nursing,
     "_nursing,_baby c,_baby r,_baby f,_babyc,diaper,nappy,wickelr,wickeltisch,stillraum,espaces "
     "bebe,espace bebe,allaitement,lactancia,cambiador,授乳,ベビー,수유,العناية بالرضع,رضاعة"},
    {firstAid,
     "first aid,defibrillat,_aed_,erste hilfe,premiers secours,infirmerie,primeros auxilios,"
     "desfibrilador,救護,救急,응급,제세동,إسعاف,الصدمات القلبية,_sanitatsr"},
    {health,
     "_health,_medical,_doctor,_clinic,_hospital,pharmac,_dentist,_optic,apotheke,_arzt,_arzte,_"
     "klinik,"
     "gesundheit,_sante_,_medecin,_dentaire,_salud_,_medico,_farmacia,_clinica,医療,病院,医院,薬局,"
     "薬店,"
     "クリニック,診療,歯科,의료,병원,약국,الصحة,أطباء,صيدلي,عيادة,مستشفى"},

    // Ways in, out and on.
    {bicycle,
     "_bicycl,_bike,_cycle p,fahrrad,_velo_,_velos_,bicicleta,駐輪,自転車,자전거,دراجات,الدراجات"},
    {parking,
     "_parking_,_parkings_,_car park,_parken_,_parkhaus,_parkplat,stationnement,aparcamiento,"
     "estacionamiento,駐車,주차,مواقف,موقف"},
    {gate,
     "_gate_,_gates_,_boarding,ticket gate,_turnstile,_barrier,_security "
     "check,_control_,_controls_,"
     "fahrkartensperre,flugsteig,_kontrolle,_sperre_,_sperren_,controle des b,porte d "
     "embarq,portes d "
     "embarq,portes dembarq,porte dembarq,portique,_controles_,_controle_,puerta de "
     "embarque,torniquete,改札,搭乗口,検査場,개찰,"
     "게이트,탑승구,بوابة,بوابات,نقاط التفتيش"},
    {exit, "_exit,ausgang,ausgange,_sortie,_salida,非常口,_출구,비상구,مخرج,المخارج,مخارج"},
    {entrance,
     "_entrance,_entry_,_entries_,eingang,eingange,_entree,_entrada,_acceso_,_accesos_,_access_,"
     "出入口,入口,_玄関,입구,출입구,مدخل,المداخل,مداخل"},
    {exit, "出口,출구"},
    {cash, "distributeurs de billets,distributeur de billets"},
    {ticket,
     "_ticket,fahrkarte,fahrschein,_billet_,_billets_,billetterie,guichet,taquilla,_boleto,_"
     "billete,"
     "キップ,切符,券売,チケット,매표,승차권,تذاكر,التذاكر,check in,enregistrement,facturacion,"
     "チェックイン,체크인,تسجيل الوصول"},
    {platform,
     "_platform,bahnsteig,_quai_,_quais_,_anden_,_andenes_,ホーム,ノリバ 番線,番線,승강장,플랫폼,"
     "رصيف,الأرصفة"},
    {taxi, "_taxi,タクシー,택시,سيارات الأجرة,سيارة أجرة,تاكسي"},
    {bus,
     "_bus_,_buses_,_busse_,_bus s,busbahnhof,bushalte,_coach_,_coaches_,_arret_,_arrets_,"
     "_haltestelle,_parada_,_paradas_,_autobus,バス停,バスノリバ,バス乗,バスターミナル,_バス_,버스,"
     "정류장,حافلات,الحافلات,حافلة"},
    {metro,
     "_metro_,_metros_,_subway,_underground_,_train_,_trains_,_railway,_station_,_stations_,_tram_,"
     "_trams_,"
     "u bahn,s "
     "bahn,_bahn_,_bahnhof,_zuge_,_gare_,_gares_,_tren_,_trenes_,_estacion_,鉄道,地下鉄,電車,駅,"
     "지하철,전철,기차,القطار,المترو,مترو,محطة"},
    {entrance, "getting here,anfahrt,_acces_,アクセス,الوصول"},
    {bus, "_transport,_verkehr,交通,교통"},

    // Facilities.
    {cash,
     "_atm_,_atms_,cash machine,cash "
     "dispenser,cashpoint,_cash_,geldautomat,bankomat,_distributeur_,"
     "_distributeurs_,cajero,現金自動,현금,صراف"},
    {lockers,
     "_locker,schliessf,_consigne,_taquillas_,left luggage,_luggage,_baggage,_gepack,_bagages,"
     "_equipaje,コインロッカー,ロッカー,手荷物,보관함,사물함,물품보관,خزائن,الأمتعة"},
    {phone, "_phone,_telephone,telefon,_telefono,公衆電話,電話,전화,هاتف,هواتف"},
    {smoking, "_smoking,_smokers,raucher,_fumeur,_fumoir,_fumador,喫煙,흡연,التدخين"},
    {waiting,
     "_waiting,_seating,_bench_,_benches_,warter,wartebereich,wartesaal,_sitzpl,sitzbank,_attente,"
     "_sieges_,_banc_,_bancs_,sala de espera,_asientos_,待合室,待合所,ベンチ,대기실,의자,"
     "انتظار,مقاعد"},
    {information,
     "_info_,_information,_informacion,_reception,_help desk,_helpdesk,_visitor c,_meeting "
     "point,_empfang,"
     "_auskunft,_treffpunkt,_accueil_,point de rencontre,points de rencontre,_recepcion,"
     "punto de encuentro,案内,受付,待チ合ワセ,インフォメーション,안내,접수,استعلامات,الاستقبال,"
     "معلومات,نقاط التقاء"},
    {security,
     "_security,_police,_polizei,_sicherheit,_securite,_seguridad_,_policia,警備,交番,警察,"
     "防災センター,보안,경찰,경비,الأمن,الشرطة"},

    // What people come for.
    {library, "_librar,bibliothe,mediathe,biblioteca,図書,도서관,مكتبات,مكتبة عامة"},
    {food,
     "_food,_eat_,_eat "
     "and,_dining,restaurant,_cafe_,_cafes_,_cafeteria,_coffee,_bar_,_bars_,_pub_,_pubs_,"
     "_bakery,_bakeries,_sweets,_quick b,_canteen,_bistro,_pizz,_ice "
     "cream,gastronom,_essen_,_backwaren,"
     "backerei,_cafe,_kantine,_mensa_,_schnelle k,_imbiss,_restauration,_boulangerie,_patisserie,"
     "_confiserie,_cantine,_comida,_restaurante,_panaderia,飲食,レストラン,カフェ,喫茶,軽食,食堂,"
     "ベーカリー,スイーツ,フード,_バー_,居酒屋,음식,식당,레스토랑,카페,베이커리,مأكولات,المأكولات,"
     "مطعم,مطاعم,مقاه,مقهى,وجبات,مخبوزات,مشروبات"},
    {sport,
     "_fitness,_gym_,_gyms_,_sports c,_sports "
     "h,_climbing,_swimming,sporthalle,turnhalle,schwimm,_sport_,"
     "_sports_,gymnase,piscine,gimnasio,_deporte,フィットネス,スポーツ,体育,헬스,체육,لياقة"},
    {culture,
     "_cultur,_kultur,_art_,_arts_,_museum,_gallery,_galleries,_cinema,_kino_,_theat,_exhibition,_"
     "kunst,"
     "_musee,_galerie,_spectacle,_cine_,_teatro,_museo,_arte_,_play_,_playground,_spiel_,_spiel "
     "und,"
     "_jeux_,_juegos,_prayer,_chapel,_quiet r,gebets,_andacht,_kapelle,_priere,_capilla,_landmark,"
     "orientierungspunkt,point de repere,points de repere,_leisure,_freizeit,_loisir,_ocio,"
     "_entertain,文化,アート,美術,博物,映画,劇場,遊ビ場,レジャー,祈祷,目印,문화,박물관,미술,영화,"
     "극장,놀이,기도실,ثقافة,متحف,سينما,مسرح,ترفيه,ملاعب,مصلى,معالم"},
    {garden,
     "_garden,_terrace,_park_,_parks_,garten,terrasse,_jardin,_terraza,_parque,庭園,テラス,公園,"
     "정원,공원,테라스,حدائق,حديقة,شرفات"},
    {shop,
     "_shop,_store_,_stores_,_retail,_boutique,_department "
     "st,_supermarket,_market_,_clothing,_shoes,_bags "
     "and,_jewel,_home "
     "and,_books,_toys,_electronics,_music_,_gifts,_grocer,_kiosk,geschaft,_laden_,_laden,"
     "kaufh,_mode_,_schuhe,_taschen,_schmuck,_haus "
     "und,_bucher,spielwaren,elektronik,_musik,geschenke,"
     "lebensmittel,_kioske,_magasin,grands "
     "magasins,_vetement,_chaussure,_maroquinerie,_bijou,_maison et,"
     "_livres,_jouets,electronique,_musique,_cadeaux,_alimentation,_kiosque,_tienda,_comercio,_"
     "ropa_,店舗,"
     "売店,百貨店,ショップ,商店,ファッション,_靴,バッグ,宝飾,家具,_本_,本 "
     "文具,玩具,家電,音楽,ギフト,"
     "食料品,상점,매장,가게,편의점,쇼핑,متجر,متاجر,ملابس,أحذية,حقائب,مجوهرات,المنزل والمطبخ,كتب,"
     "ألعاب,إلكترونيات,موسيقى,هدايا,بقالة,أكشاك,محلات"},
    {service,
     "_service,_bank_,_banks_,_banking,_repair,_hair,_barber,dienstleist,_banken,_reparatur,"
     "friseur,"
     "_banque,_reparation,_coiffeur,_coiffure,_hotel,_banco_,_peluquer,_servicio,銀行,サービス,"
     "修理,美容,"
     "理容,ホテル,은행,미용,서비스,خدمات,مصرف,إصلاح,تصفيف,فندق,فنادق"},
    {office,
     "_office,_buro_,_buros_,buro_,buros_,_bureau,_oficina,_verwaltung,_administrat,事務,オフィス,"
     "사무,"
     "مكتب_,مكاتب"},
    {room,
     "_room,classroom,_lecture,_auditori,_laborator,_lab_,_labs_,_lounge,_kitchen,_storage,_"
     "bedroom,"
     "_seminar,_workshop,raum_,_raum,raume,_zimmer,horsaal,horsale,_labor,_kuche,_lagerr,_"
     "aufenthalt,_saal_,"
     "_salle,_salon,_amphithe,_cuisine,_reserve,_chambre,locaux tech,_sala_,_salas_,_aula,_cocina,"
     "部屋,教室,講堂,講義,実験室,会議室,ラウンジ,キッチン,倉庫,機械室,寝室,室_,강의실,연구실,교실,"
     "회의실,실_,غرف,غرفة,قاعة,قاعات,مدرجات,مختبر,صالات,مطابخ,مخازن"},
};

constexpr KindRow toilets[] = {
    {toiletWheelchair,
     "accessib,wheelchair,_disabled,barrierefrei,rollstuhl,behindert,handicap,_pmr_,adaptad,"
     "minusvalid,多機能,多目的,バリアフリー,車イス,車椅子,장애인,ذوي"},
    {other, "unisex,_all gender,_family,_mixed,_mixte,familie,男女,남녀"},
    {toiletWomen,
     "_women,_womens,_ladies,_female,damen,frauen,_femme,_dames,_mujer,_senoras,女,여,نساء,سيدات"},
    {toiletMen,
     "_men_,_mens_,_gentlemen,_male_,herren,manner,_homme,_messieurs,_hombre,_caballero,男,남,"
     "رجال"},
};

}  // namespace

std::span<const KindRow> kindTable() { return rows; }

std::span<const KindRow> toiletTable() { return toilets; }

}  // namespace orivanta
