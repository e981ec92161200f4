#include "Benchmarks/OpenSceneGraphStage.hpp"

#include <map>
#include <osg/CullFace>
#include <osg/GLExtensions>
#include <osg/Geometry>
#include <osg/GraphicsContext>
#include <osg/LightSource>
#include <osg/Material>
#include <osgShadow/ShadowMap>
#include <osgShadow/ShadowedScene>
#include <osgViewer/Viewer>
#include <stdexcept>

#include "Platform/Scene/Camera.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Light.hpp"
#include "Platform/Scene/Material.hpp"
#include "Platform/Scene/Node.hpp"

namespace orivanta::benchmarks {

namespace {

constexpr int samples = 4;
constexpr int width = 1280;
constexpr int height = 800;

osg::Vec3 vectorOf(const graphics::Vector3& v) { return {v.x, v.y, v.z}; }

osg::Matrixd matrixOf(const graphics::Matrix4& m) { return osg::Matrixd(&m[0][0]); }

osg::Vec4 colorOf(const scene::Material& material) {
  const auto color = std::get<graphics::Color>(material.diffuse().contents);
  return {color.red, color.green, color.blue, color.alpha};
}

osg::ref_ptr<osg::Geometry> geometryOf(const scene::Geometry& geometry) {
  const auto& points = *geometry.source(scene::Semantic::vertex);
  const auto& normals = *geometry.source(scene::Semantic::normal);
  osg::ref_ptr vertexArray = new osg::Vec3Array;
  osg::ref_ptr normalArray = new osg::Vec3Array(osg::Array::BIND_PER_VERTEX);
  osg::ref_ptr indices = new osg::DrawElementsUInt(GL_TRIANGLES);
  std::map<std::uint64_t, std::uint32_t> places;
  const auto& element = geometry.elements().front();
  for (std::size_t i = 0; i < element.indexCount(); ++i) {
    const auto [place, isNew] = places.try_emplace(element.index(i), vertexArray->size());
    if (isNew) {
      vertexArray->push_back(vectorOf(points.vector(place->first)));
      normalArray->push_back(vectorOf(normals.vector(place->first)));
    }
    indices->push_back(place->second);
  }
  osg::ref_ptr result = new osg::Geometry;
  result->setUseDisplayList(false);
  result->setUseVertexBufferObjects(true);
  result->setVertexArray(vertexArray);
  result->setNormalArray(normalArray);
  result->addPrimitiveSet(indices);
  osg::ref_ptr material = new osg::Material;
  material->setDiffuse(osg::Material::FRONT_AND_BACK, colorOf(*geometry.firstMaterial()));
  material->setAmbient(osg::Material::FRONT_AND_BACK, colorOf(*geometry.firstMaterial()));
  result->getOrCreateStateSet()->setAttributeAndModes(material);
  return result;
}

osg::ref_ptr<osg::GraphicsContext> makeContext() {
  osg::ref_ptr traits = new osg::GraphicsContext::Traits;
  traits->readDISPLAY();
  traits->setUndefinedScreenDetailsToDefaultScreen();
  traits->width = width;
  traits->height = height;
  traits->pbuffer = true;
  // An X server resets when its last client disconnects, and refuses connections meanwhile.
  static const osg::ref_ptr staying = osg::GraphicsContext::createGraphicsContext(traits);
  osg::ref_ptr context = osg::GraphicsContext::createGraphicsContext(traits);
  if (!context) throw std::runtime_error("OpenSceneGraph needs an X server: try xvfb-run");
  return context;
}

osg::ref_ptr<osg::LightSource> makeLight(const scene::Node& sun) {
  osg::ref_ptr source = new osg::LightSource;
  osg::Light& light = *source->getLight();
  light.setPosition(osg::Vec4(vectorOf(sun.worldTransform()[2]), 0));
  light.setDiffuse({1, 1, 1, 1});
  light.setSpecular({0, 0, 0, 0});
  light.setAmbient({0.33F, 0.33F, 0.33F, 1});
  return source;
}

osg::ref_ptr<osg::Node> makeScene(const SeenFloor& floor, int shadowMapSide) {
  osg::ref_ptr shadows = new osgShadow::ShadowMap;
  const auto side = static_cast<short>(shadowMapSide);
  shadows->setTextureSize({side, side});
  shadows->setTextureUnit(0);  // rooms have no textures
  osg::ref_ptr root = new osgShadow::ShadowedScene(shadows);
  for (const auto& room : floor.rooms->children()) root->addChild(geometryOf(*room->geometry()));
  const auto light = makeLight(*floor.rig.sun);
  light->setStateSetModes(*root->getOrCreateStateSet(), osg::StateAttribute::ON);
  root->getOrCreateStateSet()->setMode(GL_LIGHTING, osg::StateAttribute::ON);
  root->addChild(light);
  shadows->setLight(light);
  return root;
}

// Mesa returns an address for any function name, so OpenSceneGraph assumes that this function
// exists.
void forgetMissingFunction(osg::GraphicsContext& context) {
  context.makeCurrent();
  context.getState()->get<osg::GLExtensions>()->glRenderbufferStorageMultisampleCoverageNV =
      nullptr;
}

}  // namespace

struct OpenSceneGraphStage::Parts {
  const SeenFloor& floor;
  osgViewer::Viewer viewer{};
  osg::ref_ptr<osg::GraphicsContext> context = makeContext();
  osg::ref_ptr<osg::Texture2D> texture = new osg::Texture2D;
  osg::ref_ptr<osg::Image> picture = new osg::Image;

  void setUpCamera() {
    osg::Camera& camera = *viewer.getCamera();
    camera.setGraphicsContext(context);
    camera.setViewport(0, 0, width, height);
    camera.setRenderTargetImplementation(osg::Camera::FRAME_BUFFER_OBJECT);
    texture->setTextureSize(width, height);
    texture->setInternalFormat(GL_RGBA8);
    texture->setFilter(osg::Texture::MIN_FILTER, osg::Texture::LINEAR);
    camera.attach(osg::Camera::COLOR_BUFFER, texture.get(), 0, 0, false, samples);
    camera.setProjectionMatrix(
        matrixOf(floor.rig.eye->camera()->projection(SeenFloor::pictureSize)));
    camera.setComputeNearFarMode(osg::CullSettings::DO_NOT_COMPUTE_NEAR_FAR);
    camera.setClearColor({1, 1, 1, 1});
  }
};

OpenSceneGraphStage::OpenSceneGraphStage(const SeenFloor& floor, int shadowMapSide,
                                         bool isToldThatRoomsAreClosed)
    : parts_(new Parts{floor}) {
  parts_->setUpCamera();
  osgViewer::Viewer& viewer = parts_->viewer;
  viewer.setUseConfigureAffinity(false);  // the driver's threads would share one processor
  viewer.setThreadingModel(osgViewer::ViewerBase::SingleThreaded);
  viewer.setLightingMode(osg::View::NO_LIGHT);  // only the floor's own light
  const auto scene = makeScene(floor, shadowMapSide);
  if (isToldThatRoomsAreClosed)
    scene->getOrCreateStateSet()->setAttributeAndModes(new osg::CullFace);
  viewer.setSceneData(scene);
  viewer.realize();
  forgetMissingFunction(*parts_->context);
}

OpenSceneGraphStage::~OpenSceneGraphStage() = default;

void OpenSceneGraphStage::draw() {
  parts_->viewer.getCamera()->setViewMatrix(
      osg::Matrixd::inverse(matrixOf(parts_->floor.rig.eye->worldTransform())));
  parts_->viewer.frame();
  osg::GraphicsContext& context = *parts_->context;
  context.makeCurrent();
  const unsigned number = context.getState()->getContextID();
  parts_->texture->getTextureObject(number)->bind();
  parts_->picture->readImageFromCurrentTexture(number, false);
  context.releaseContext();  // so that other contexts can be used on this thread
}

std::span<const std::uint8_t> OpenSceneGraphStage::pixels() const {
  return {parts_->picture->data(), std::size_t{4} * width * height};
}

}  // namespace orivanta::benchmarks
